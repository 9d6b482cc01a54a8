#include "widgets/first_touch.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>
#include <algorithm>

namespace widgets {

namespace {

constexpr QEvent::Type kTouches[] = {QEvent::KeyPress,   QEvent::MouseButtonPress,
                                     QEvent::TouchBegin, QEvent::TabletPress,
                                     QEvent::Wheel,      QEvent::ShortcutOverride};

} // namespace

FirstTouch::FirstTouch(const QWidget& part)
    : m_part(part)
{
    qApp->installEventFilter(this);
}

bool FirstTouch::eventFilter(QObject* watched, QEvent* event)
{
    if (std::find(std::begin(kTouches), std::end(kTouches), event->type()) == std::end(kTouches)) {
        return false;
    }
    const auto* widget = qobject_cast<const QWidget*>(watched);
    if (widget != nullptr && widget->window() == m_part.window()) {
        m_hasCome = true;
        qApp->removeEventFilter(this);
    }
    return false;
}

} // namespace widgets
