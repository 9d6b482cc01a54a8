#include "widgets/window_drag.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>
#include <algorithm>

namespace widgets {

namespace {

constexpr int kGrabWidth = 40;
constexpr int kGrabHeight = 24;

// Follows the pointer for one drag; belongs to what it moves, so that it goes with it.
class Drag : public QObject {
public:
    Drag(QWidget& target, QPoint globalPosition)
        : QObject(&target)
        , m_target(target)
        , m_offset(globalPosition - target.mapToGlobal(QPoint(0, 0)))
    {
        qApp->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::MouseMove) {
            follow(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
        } else if (event->type() == QEvent::MouseButtonRelease) {
            if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
                qApp->removeEventFilter(this);
                deleteLater();
            }
        }
        return QObject::eventFilter(watched, event);
    }

private:
    void follow(QPoint globalPosition)
    {
        const QPoint corner = globalPosition - m_offset;
        const QWidget* parent = m_target.parentWidget();
        if (m_target.isWindow() || parent == nullptr) {
            m_target.move(corner);
            return;
        }
        m_target.move(reachablePlace(parent->mapFromGlobal(corner), m_target.width(),
                                     parent->width(), parent->height()));
    }

    QWidget& m_target;
    QPoint m_offset; // from the target's corner to the place of the press
};

} // namespace

void beginDrag(QWidget& target, QPoint globalPosition)
{
    if (target.isWindow()) {
        QWindow* window = target.windowHandle();
        if (window != nullptr && window->startSystemMove()) {
            return;
        }
    }
    new Drag(target, globalPosition); // owned by the target
}

QPoint reachablePlace(QPoint wished, int width, int parentWidth, int parentHeight)
{
    const int leftmost = std::min(0, kGrabWidth - width);
    const int rightmost = std::max(leftmost, parentWidth - kGrabWidth);
    const int lowest = std::max(0, parentHeight - kGrabHeight);
    return {std::clamp(wished.x(), leftmost, rightmost), std::clamp(wished.y(), 0, lowest)};
}

} // namespace widgets
