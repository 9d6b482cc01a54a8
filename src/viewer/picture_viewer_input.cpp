#include "viewer/picture_viewer.h"

#include "viewer/pan_view_window.h"
#include "widgets/focus_ring.h"
#include "widgets/key_codes.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

bool cpvPicViewer::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_iDst) {
        return pictureEvent(event);
    }
    if (watched == m_host) {
        hostEvent(event);
        return false;
    }
    return barEvent(event);
}

bool cpvPicViewer::barEvent(QEvent* event)
{
    // The wheel steps through the pictures wherever it is turned, so the bars leave it alone.
    if (event->type() == QEvent::Wheel) {
        event->ignore();
        return true;
    }
    if (event->type() == QEvent::MouseButtonPress &&
        static_cast<QMouseEvent*>(event)->button() == Qt::RightButton) {
        emit MouseDownBack(widgets::kRightButton);
        return true;
    }
    return false;
}

bool cpvPicViewer::pictureEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::Paint: {
        QPainter painter(m_iDst);
        paintPicture(painter);
        return true;
    }
    case QEvent::MouseButtonPress:
        pictureMousePress(static_cast<QMouseEvent*>(event));
        return true;
    case QEvent::MouseMove:
        pictureMouseMove(static_cast<QMouseEvent*>(event));
        return true;
    case QEvent::MouseButtonRelease:
        pictureMouseRelease(static_cast<QMouseEvent*>(event));
        return true;
    case QEvent::MouseButtonDblClick:
        emit DblClick();
        return true;
    default:
        return false;
    }
}

void cpvPicViewer::pictureMousePress(QMouseEvent* event)
{
    setFocus(Qt::MouseFocusReason);
    m_focusRing->hide();
    m_picturePressed = event->button() == Qt::LeftButton;
    const int shift = widgets::shiftState(event->modifiers());
    if (event->button() == Qt::LeftButton && shift != widgets::kControlKey) {
        setPointerIcon(viewer::CursorShape::Grab);
        m_dragging = true;
        m_lastScreen = event->globalPosition().toPoint();
    }
    const QPoint pixel = picturePoint(event->position().toPoint());
    emit MouseDown(widgets::buttonNumbers(event->button()), shift, pixel.x(), pixel.y());
}

void cpvPicViewer::pictureMouseMove(QMouseEvent* event)
{
    if (m_dib.hDIB() && event->buttons().testFlag(Qt::LeftButton) && m_mouseScrolling &&
        m_dragging) {
        dragTo(event->globalPosition().toPoint());
    }
    const QPoint pixel = picturePoint(event->position().toPoint());
    emit MouseMove(widgets::buttonNumbers(event->buttons()),
                   widgets::shiftState(event->modifiers()), pixel.x(), pixel.y());
}

void cpvPicViewer::pictureMouseRelease(QMouseEvent* event)
{
    const int shift = widgets::shiftState(event->modifiers());
    if (shift != widgets::kControlKey) {
        setPointerIcon(viewer::CursorShape::Release);
    }
    m_dragging = false;
    const bool clicked = m_picturePressed && event->button() == Qt::LeftButton &&
                         m_iDst->rect().contains(event->position().toPoint());
    m_picturePressed = false;
    const QPoint pixel = picturePoint(event->position().toPoint());
    const QPointer<cpvPicViewer> self(this);
    emit MouseUp(widgets::buttonNumbers(event->button()), shift, pixel.x(), pixel.y());
    if (clicked && self != nullptr) {
        emit Click();
    }
}

void cpvPicViewer::dragTo(QPoint screen)
{
    const QPoint distance = screen - m_lastScreen;
    m_lastScreen = screen;
    {
        const QScopedValueRollback changing(m_changing, true);
        if (m_layout.hMaximum > 0) {
            setBar(m_hSB,
                   viewer::draggedValue(m_hSB.widget->value(), m_layout.hMaximum, distance.x()));
        }
        if (m_layout.vMaximum > 0) {
            setBar(m_vSB,
                   viewer::draggedValue(m_vSB.widget->value(), m_layout.vMaximum, distance.y()));
        }
    }
    if (m_layout.hMaximum != 0 || m_layout.vMaximum != 0) {
        repaintPicture();
    }
}

QPoint cpvPicViewer::picturePoint(QPoint place) const
{
    return {viewer::pixelAt(m_hSB.widget->value(), place.x(), zoom()),
            viewer::pixelAt(m_vSB.widget->value(), place.y(), zoom())};
}

void cpvPicViewer::mousePressEvent(QMouseEvent* event)
{
    m_backPressed = event->button() == Qt::LeftButton;
    emit MouseDownBack(widgets::buttonNumbers(event->button()));
}

void cpvPicViewer::mouseReleaseEvent(QMouseEvent* event)
{
    const bool clicked = m_backPressed && event->button() == Qt::LeftButton &&
                         rect().contains(event->position().toPoint());
    m_backPressed = false;
    if (clicked) {
        emit ClickBack();
    }
}

void cpvPicViewer::keyPressEvent(QKeyEvent* event)
{
    const int shift = widgets::shiftState(event->modifiers());
    if (shift == widgets::kControlKey) {
        m_dragging = false;
        setPointerIcon(viewer::CursorShape::Precise);
    }
    const QPointer<cpvPicViewer> self(this);
    emit KeyDown(widgets::virtualKey(*event), shift);
    if (self != nullptr && !event->text().isEmpty()) {
        emit KeyPress(event->text().at(0).unicode());
    }
}

void cpvPicViewer::keyReleaseEvent(QKeyEvent* event)
{
    setPointerIcon(viewer::CursorShape::Release);
    emit KeyUp(widgets::virtualKey(*event), widgets::shiftState(event->modifiers()));
}

void cpvPicViewer::hostEvent(QEvent* event)
{
    if (event->type() != QEvent::Resize && event->type() != QEvent::WindowStateChange) {
        return;
    }
    layoutPass();
    if (m_fPV == nullptr) {
        return;
    }
    if (m_host->isMinimized()) {
        PanViewHide();
    } else {
        m_fPV->show();
    }
}

void cpvPicViewer::setPointerIcon(viewer::CursorShape icon)
{
    m_pointerIcon = icon;
    showPointer();
}

void cpvPicViewer::useCustomPointer(bool custom)
{
    m_customPointer = custom;
    m_pointerIcon = viewer::CursorShape::Release;
    showPointer();
}

void cpvPicViewer::showPointer()
{
    if (m_customPointer) {
        m_iDst->setCursor(m_cursors.at(m_pointerIcon, devicePixelRatioF()));
    } else {
        m_iDst->unsetCursor();
    }
}
