#include "acquire/frozen_pane.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace acquire {

FrozenPane::FrozenPane(const QImage& picture, const platform::ScreenPart& part, QWidget* parent,
                       Qt::WindowFlags flags)
    : QWidget(parent, flags)
    , m_picture(picture)
    , m_part(part)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
}

QPoint FrozenPane::pixelAt(QPointF place) const
{
    const QRect& pixels = m_part.pixels;
    const int x = pixels.x() + static_cast<int>(std::floor(place.x() * m_part.ratio()));
    const int y = pixels.y() + static_cast<int>(std::floor(place.y() * m_part.ratio()));
    return {std::clamp(x, pixels.left(), pixels.right()),
            std::clamp(y, pixels.top(), pixels.bottom())};
}

QPointF FrozenPane::placeOf(QPoint pixel) const
{
    return QPointF(pixel - m_part.pixels.topLeft()) / m_part.ratio();
}

QRect FrozenPane::placeOf(const QRect& pixels) const
{
    const QPoint topLeft = placeOf(pixels.topLeft()).toPoint();
    const QPoint end =
        placeOf(pixels.topLeft() + QPoint(pixels.width(), pixels.height())).toPoint();
    return {topLeft, QSize(end.x() - topLeft.x(), end.y() - topLeft.y())};
}

void FrozenPane::mouseMoveEvent(QMouseEvent* event)
{
    emit pointerMoved(event->position());
}

void FrozenPane::mousePressEvent(QMouseEvent* event)
{
    emit buttonPressed(event->position(), event->button());
}

// On a screen of the picture's own sharpness this is a plain copy.
void FrozenPane::paintPicture(QPainter& painter, const QRect& places) const
{
    const double ratio = m_part.ratio();
    const QRectF wanted(QPointF(places.topLeft()) * ratio, QSizeF(places.size()) * ratio);
    const QRect pixels = wanted.toAlignedRect().translated(m_part.pixels.topLeft()) & m_part.pixels;
    painter.save();
    painter.scale(1 / ratio, 1 / ratio);
    painter.drawImage(pixels.topLeft() - m_part.pixels.topLeft(), m_picture, pixels);
    painter.restore();
}

// A screen that has grown meanwhile has no picture at its end.
void FrozenPane::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QRect covered(QPoint(0, 0), m_part.place.size());
    for (const QRect& exposed : event->region()) {
        if (!covered.contains(exposed)) {
            painter.fillRect(exposed, Qt::black);
        }
        paintPicture(painter, exposed & covered);
    }
    emit painting(painter);
}

} // namespace acquire
