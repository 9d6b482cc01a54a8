#include "thumbs/pane_splitter.h"

#include "widgets/colour_conversion.h"

#include <QMouseEvent>
#include <QPainter>

namespace thumbs {

namespace {

constexpr base::Colour kFace = 0xE0E0E0;
constexpr base::Colour kShade = 0xB0B0B0;
constexpr base::Colour kDots = 0x909090;
constexpr int kDotStep = 4;

} // namespace

PaneSplitter::PaneSplitter(QWidget* parent)
    : QWidget(parent)
{
    setCursor(Qt::SizeVerCursor);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PaneSplitter::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), widgets::toQColor(kFace));
    painter.fillRect(0, 0, width(), 1, widgets::toQColor(kShade));
    painter.fillRect(0, height() - 1, width(), 1, widgets::toQColor(kShade));
    for (int dot = -2; dot <= 2; ++dot) {
        painter.fillRect(width() / 2 + dot * kDotStep, height() / 2, 2, 1,
                         widgets::toQColor(kDots));
    }
}

void PaneSplitter::mousePressEvent(QMouseEvent* event)
{
    m_dragging = true;
    m_startY = event->position().toPoint().y();
    resize(width(), 1);
    raise();
}

void PaneSplitter::mouseMoveEvent(QMouseEvent* event)
{
    if (m_dragging) {
        follow(*event);
    }
}

void PaneSplitter::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_dragging) {
        m_dragging = false;
        follow(*event);
        emit dropped();
    }
}

void PaneSplitter::follow(const QMouseEvent& event)
{
    const QPoint pointer = parentWidget()->mapFromGlobal(event.globalPosition().toPoint());
    move(0, pointer.y() - m_startY);
}

PaneGrip::PaneGrip(QWidget* parent)
    : QWidget(parent)
{
    setCursor(Qt::SizeHorCursor);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PaneGrip::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), widgets::toQColor(kFace));
    painter.fillRect(0, 0, 1, height(), widgets::toQColor(kShade));
    painter.fillRect(width() - 1, 0, 1, height(), widgets::toQColor(kShade));
    for (int dot = -2; dot <= 2; ++dot) {
        painter.fillRect(width() / 2, height() / 2 + dot * kDotStep, 1, 2,
                         widgets::toQColor(kDots));
    }
}

void PaneGrip::mousePressEvent(QMouseEvent* event)
{
    m_beside = width() - event->position().toPoint().x();
}

void PaneGrip::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint pointer = parentWidget()->mapFromGlobal(event->globalPosition().toPoint());
    emit widthWanted(pointer.x() + m_beside);
}

} // namespace thumbs
