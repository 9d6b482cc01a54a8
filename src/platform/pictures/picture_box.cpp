#include "platform/pictures/picture_box.h"

#include "platform/pictures/large_image.h"
#include "platform/pictures/transfers.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr qint64 kMaxSurfaceBytes = qint64(512) << 20;

QRgb rgbOf(base::Colour colour)
{
    const base::Colour plain = base::translated(colour);
    return qRgb(int(base::redOf(plain)), int(base::greenOf(plain)), int(base::blueOf(plain)));
}

bool isPossibleSize(int width, int height)
{
    return width >= 1 && height >= 1 && qint64(width) * height <= kMaxSurfaceBytes / 4;
}

QRect cornersOf(int x1, int y1, int x2, int y2)
{
    return {QPoint(std::min(x1, x2), std::min(y1, y2)), QPoint(std::max(x1, x2), std::max(y1, y2))};
}

// To the nearest whole number, halves to the even one.
int nearest(double value)
{
    constexpr double kLimit = 1 << 28;
    return int(std::nearbyint(std::clamp(value, -kLimit, kLimit)));
}

// A side that begins at an edge and, with a negative length, goes back from there. An area counts
// its pixels from the one before that edge.
int firstPixel(int edge, int length)
{
    return length < 0 ? edge - 1 : edge;
}

Area areaOf(const QRectF& rectangle)
{
    const int width = nearest(rectangle.width());
    const int height = nearest(rectangle.height());
    return {firstPixel(nearest(rectangle.x()), width), firstPixel(nearest(rectangle.y()), height),
            width, height};
}

// The visible part of a scaled translucent picture, painted over what stands there.
void paintTranslucent(QImage& surface, Area targetArea, const QImage& image, Area sourceArea)
{
    const int left = targetArea.width < 0 ? targetArea.x + targetArea.width + 1 : targetArea.x;
    const int top = targetArea.height < 0 ? targetArea.y + targetArea.height + 1 : targetArea.y;
    const QRect visible =
        QRect(left, top, std::abs(targetArea.width), std::abs(targetArea.height)) & surface.rect();
    if (visible.isEmpty()) {
        return;
    }
    QImage layer(visible.size(), QImage::Format_ARGB32_Premultiplied);
    if (layer.isNull()) {
        return;
    }
    layer.fill(Qt::transparent);
    targetArea.x -= visible.x();
    targetArea.y -= visible.y();
    StretchBlt(layer, targetArea, image, sourceArea);
    QPainter(&surface).drawImage(visible.topLeft(), layer);
}

} // namespace

PictureBox::PictureBox(int width, int height)
{
    resize(width, height);
}

bool PictureBox::resize(int width, int height)
{
    if (!isPossibleSize(width, height)) {
        return false;
    }
    if (m_surface.size() == QSize(width, height)) {
        return true;
    }
    QImage surface = unsetImage({width, height}, QImage::Format_RGB32);
    if (surface.isNull()) {
        return false;
    }
    if (m_surface.width() < width || m_surface.height() < height) {
        surface.fill(rgbOf(m_backColor));
    }
    if (!m_surface.isNull()) {
        BitBlt(surface, 0, 0, width, height, m_surface, 0, 0);
    }
    m_surface = surface;
    return true;
}

void PictureBox::setBackColor(base::Colour colour)
{
    m_backColor = colour;
    cls();
}

void PictureBox::setPicture(const Picture& picture)
{
    m_picture = picture;
    const QImage& image = m_picture.image();
    if (!picture.isNothing() && m_surface.size() != image.size() &&
        isPossibleSize(picture.width(), picture.height())) {
        m_surface = image.format() == QImage::Format_RGB32
                        ? image
                        : QImage(image.size(), QImage::Format_RGB32);
    }
    cls();
}

void PictureBox::cls()
{
    if (m_surface.isNull()) {
        return;
    }
    const QImage& image = m_picture.image();
    if (image.format() == QImage::Format_RGB32 && image.size() == m_surface.size()) {
        m_surface = image;
        return;
    }
    m_surface.fill(rgbOf(m_backColor));
    if (!m_picture.isNothing()) {
        QPainter(&m_surface).drawImage(0, 0, image);
    }
}

void PictureBox::paintPicture(const Picture& picture, double left, double top, double width,
                              double height)
{
    paintPicture(picture, {left, top, width, height},
                 {0, 0, double(picture.width()), double(picture.height())});
}

void PictureBox::paintPicture(const Picture& picture, QRectF destination, QRectF source)
{
    const Area targetArea = areaOf(destination);
    const Area sourceArea = areaOf(source);
    if (picture.image().hasAlphaChannel()) {
        paintTranslucent(m_surface, targetArea, picture.image(), sourceArea);
    } else {
        StretchBlt(m_surface, targetArea, picture.image(), sourceArea);
    }
}

void PictureBox::line(int x1, int y1, int x2, int y2, base::Colour colour)
{
    if (m_surface.isNull()) {
        return;
    }
    QPainter painter(&m_surface);
    painter.setPen(QPen(QColor(rgbOf(colour)), 1));
    painter.drawLine(x1, y1, x2, y2);
}

void PictureBox::frameBox(int x1, int y1, int x2, int y2, base::Colour colour)
{
    const QRect box = cornersOf(x1, y1, x2, y2);
    fillBox(box.left(), box.top(), box.right(), box.top(), colour);
    fillBox(box.left(), box.bottom(), box.right(), box.bottom(), colour);
    fillBox(box.left(), box.top(), box.left(), box.bottom(), colour);
    fillBox(box.right(), box.top(), box.right(), box.bottom(), colour);
}

void PictureBox::fillBox(int x1, int y1, int x2, int y2, base::Colour colour)
{
    if (m_surface.isNull()) {
        return;
    }
    QPainter(&m_surface).fillRect(cornersOf(x1, y1, x2, y2), QColor(rgbOf(colour)));
}

base::Colour PictureBox::point(int x, int y) const
{
    if (!m_surface.valid(x, y)) {
        return base::translated(m_backColor);
    }
    const QRgb pixel = m_surface.pixel(x, y);
    return base::rgb(unsigned(qRed(pixel)), unsigned(qGreen(pixel)), unsigned(qBlue(pixel)));
}

} // namespace platform
