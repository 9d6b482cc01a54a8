// How the button answers pointer, keys, focus and screen readers.
#include "widgets/chameleon_button.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

using widgets::ButtonState;

bool chameleonButton::event(QEvent* event)
{
    if (event->type() != QEvent::Shortcut) {
        return QAbstractButton::event(event);
    }
    if (static_cast<QShortcutEvent*>(event)->isAmbiguous()) {
        setFocus(Qt::ShortcutFocusReason);
    } else {
        click();
    }
    return true;
}

void chameleonButton::nextCheckState()
{
    if (m_checkBoxBehaviour) {
        setValue(!m_value);
    }
}

// A screen reader that flips the check mark means a click.
void chameleonButton::followAccessibleToggle(bool checked)
{
    if (checked != m_value) {
        setValue(checked);
        emit clicked(checked);
    }
}

void chameleonButton::mousePressEvent(QMouseEvent* event)
{
    if (!hitButton(event->pos())) {
        event->ignore();
        return;
    }
    if (event->button() != Qt::RightButton) {
        m_pressedButton = event->button();
        Redraw(ButtonState::Pressed, false);
    }
    emit MouseDown(event->button(), event->pos());
}

void chameleonButton::mouseMoveEvent(QMouseEvent* event)
{
    const bool isEntering =
        event->buttons() == Qt::NoButton && !m_mouseIsOver && hitButton(event->pos());
    if (isEntering) {
        m_overTimer.start();
        m_mouseIsOver = true;
        Redraw(ButtonState::Normal, true);
        emit MouseOver();
    }
    emit MouseMove(event->buttons(), event->pos());
}

void chameleonButton::mouseReleaseEvent(QMouseEvent* event)
{
    const QPointer<chameleonButton> guard(this);
    if (event->button() != Qt::RightButton) {
        Redraw(ButtonState::Normal, false);
    }
    emit MouseUp(event->button(), event->pos());
    const bool clicks = !guard.isNull() && event->button() == Qt::LeftButton &&
                        m_pressedButton == Qt::LeftButton && hitButton(event->pos());
    if (guard.isNull()) {
        return;
    }
    m_pressedButton = Qt::NoButton;
    if (clicks) {
        click();
    }
}

// The timer watches for the pointer's leaving, because a quick move out of the window or below a
// popup may send no event.
void chameleonButton::checkPointer()
{
    if (!hitButton(mapFromGlobal(QCursor::pos()))) {
        pointerLeft();
    }
}

void chameleonButton::pointerLeft()
{
    m_overTimer.stop();
    if (!m_mouseIsOver) {
        return;
    }
    m_mouseIsOver = false;
    Redraw(ButtonState::Normal, true);
    emit MouseOut();
}

void chameleonButton::leaveEvent(QEvent* event)
{
    QAbstractButton::leaveEvent(event);
    pointerLeft();
}

void chameleonButton::hideEvent(QHideEvent* event)
{
    QAbstractButton::hideEvent(event);
    pointerLeft();
}

void chameleonButton::keyPressEvent(QKeyEvent* event)
{
    emit KeyDown(event->key());
    if (!event->text().isEmpty()) {
        emit KeyPress(event->text());
    }
    if (!event->isAutoRepeat()) {
        m_lastKey = event->key();
    }
    switch (event->key()) {
    case Qt::Key_Space:
        Redraw(ButtonState::Pressed, false);
        break;
    case Qt::Key_Left:
    case Qt::Key_Up:
        focusNextPrevChild(false);
        break;
    case Qt::Key_Right:
    case Qt::Key_Down:
        focusNextPrevChild(true);
        break;
    default:
        event->ignore();
    }
}

void chameleonButton::keyReleaseEvent(QKeyEvent* event)
{
    if (event->isAutoRepeat()) {
        return;
    }
    emit KeyUp(event->key());
    const bool isSpace = event->key() == Qt::Key_Space && m_lastKey == Qt::Key_Space;
    m_lastKey = 0;
    if (!isSpace) {
        event->ignore();
        return;
    }
    Redraw(ButtonState::Normal, false);
    click();
}

void chameleonButton::focusInEvent(QFocusEvent* /*event*/)
{
    m_hasFocus = true;
    Redraw(ButtonState::Normal, true);
}

void chameleonButton::focusOutEvent(QFocusEvent* /*event*/)
{
    m_hasFocus = false;
    m_lastKey = 0;
    Redraw(ButtonState::Normal, true);
}
