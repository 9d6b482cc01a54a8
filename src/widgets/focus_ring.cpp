#include "widgets/focus_ring.h"

#include <QFocusEvent>
#include <QPainter>

namespace widgets {

namespace {

// A dark line with a light one inside it stands out on pictures of any colour.
constexpr QColor kOuter(0x1F, 0x5F, 0xA8);
constexpr QColor kInner(0xFF, 0xFF, 0xFF);

bool isByKey(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason;
}

// The focus is only lent to a menu or another window and comes back by itself.
bool isPassing(Qt::FocusReason reason)
{
    return reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason;
}

void drawLine(QPainter& painter, const QRect& box, const QColor& colour)
{
    painter.fillRect(box.left(), box.top(), box.width(), 1, colour);
    painter.fillRect(box.left(), box.bottom(), box.width(), 1, colour);
    painter.fillRect(box.left(), box.top(), 1, box.height(), colour);
    painter.fillRect(box.right(), box.top(), 1, box.height(), colour);
}

} // namespace

FocusRing::FocusRing(QWidget& target)
    : QWidget(&target)
    , m_target(target)
{
    setObjectName(QStringLiteral("focusRing"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
    target.installEventFilter(this);
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
        focusCame(static_cast<QFocusEvent*>(event)->reason());
        break;
    case QEvent::FocusOut:
        focusWent(static_cast<QFocusEvent*>(event)->reason());
        break;
    case QEvent::Resize:
        follow();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void FocusRing::focusCame(Qt::FocusReason reason)
{
    if (!isPassing(reason)) {
        m_cameByKey = isByKey(reason);
    }
    if (m_cameByKey) {
        follow();
        show();
        raise();
    }
}

void FocusRing::focusWent(Qt::FocusReason reason)
{
    hide();
    if (!isPassing(reason)) {
        m_cameByKey = false;
    }
}

// The mask leaves what lies inside the ring alone, so that it is painted as if there were no ring.
void FocusRing::follow()
{
    const QRect whole = m_target.rect();
    setGeometry(whole);
    setMask(QRegion(whole).subtracted(whole.adjusted(kWidth, kWidth, -kWidth, -kWidth)));
}

void FocusRing::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    drawLine(painter, rect(), kOuter);
    drawLine(painter, rect().adjusted(1, 1, -1, -1), kOuter);
    drawLine(painter, rect().adjusted(2, 2, -2, -2), kInner);
}

} // namespace widgets
