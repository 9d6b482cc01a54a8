#include "platform/pictures/transfers.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace platform {

namespace {

bool isMirrored(const Area& target, const Area& source)
{
    return (target.width < 0) != (source.width < 0) || (target.height < 0) != (source.height < 0);
}

// The pixels of an area, whichever way it runs.
QRectF pixelsOf(const Area& area)
{
    const double width = std::abs(double(area.width));
    const double height = std::abs(double(area.height));
    const double left = area.width < 0 ? area.x + 1.0 - width : area.x;
    const double top = area.height < 0 ? area.y + 1.0 - height : area.y;
    return {left, top, width, height};
}

// What the painter can reach, in pixels of its device.
QRectF reachOf(QPainter& painter)
{
    const QPaintDevice* device = painter.device();
    const double ratio = device->devicePixelRatioF();
    QRectF reach(0, 0, device->width() * ratio, device->height() * ratio);
    if (const QRegion system = painter.paintEngine()->systemClip(); !system.isEmpty()) {
        // While a widget paints, its device is the whole window's store and the clip says where.
        reach = system.boundingRect();
    }
    if (painter.hasClipping()) {
        reach &= painter.deviceTransform().mapRect(painter.clipBoundingRect());
    }
    return reach;
}

// A window on some pixels of an image that shares them. Valid as long as the image.
QImage viewOf(const QImage& image, const QRect& part)
{
    return QImage(image.constScanLine(part.top()) + qsizetype(part.left()) * 4, part.width(),
                  part.height(), image.bytesPerLine(), image.format());
}

// The source pixels of one direction that stand behind the visible ones, with one to spare.
struct Side {
    int first = 0;
    int count = 0;
};

Side visibleSide(double visibleFrom, double visibleTo, double targetFrom, double scale,
                 double sourceFrom, double sourceCount, int surface)
{
    const double low = std::max(std::floor((visibleFrom - targetFrom) / scale) - 1.0, 0.0);
    const double high = std::min(std::ceil((visibleTo - targetFrom) / scale) + 1.0, sourceCount);
    const double first = std::clamp(low + sourceFrom, 0.0, double(surface));
    const double end = std::clamp(high + sourceFrom, first, double(surface));
    return {int(first), int(end - first)};
}

// Each source pixel becomes a box of the same size, cut at whole device pixels. The painter gets to
// see the visible pixels only, in place.
void paintBoxes(QPainter& painter, const QRectF& target, const QImage& source,
                const QRectF& sourcePixels)
{
    const QRectF reach = painter.deviceTransform().inverted().mapRect(reachOf(painter)) & target;
    const double scaleX = target.width() / sourcePixels.width();
    const double scaleY = target.height() / sourcePixels.height();
    const Side x = visibleSide(reach.left(), reach.right(), target.left(), scaleX,
                               sourcePixels.left(), sourcePixels.width(), source.width());
    const Side y = visibleSide(reach.top(), reach.bottom(), target.top(), scaleY,
                               sourcePixels.top(), sourcePixels.height(), source.height());
    if (reach.isEmpty() || x.count == 0 || y.count == 0) {
        return;
    }
    const QRectF onto(target.left() + (x.first - sourcePixels.left()) * scaleX,
                      target.top() + (y.first - sourcePixels.top()) * scaleY, x.count * scaleX,
                      y.count * scaleY);
    const QImage view = viewOf(source, {x.first, y.first, x.count, y.count});
    const bool smooth = painter.testRenderHint(QPainter::SmoothPixmapTransform);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.drawImage(onto, view, QRectF(view.rect()));
    painter.setRenderHint(QPainter::SmoothPixmapTransform, smooth);
}

Area shifted(Area area, const QPoint& by)
{
    area.x -= by.x();
    area.y -= by.y();
    return area;
}

// The area as it stands on the device: its pixels scaled and rounded, running the same way.
Area onDevice(const Area& area, const QTransform& transform)
{
    const QRectF exact = transform.mapRect(pixelsOf(area));
    const int left = int(std::lround(exact.left()));
    const int top = int(std::lround(exact.top()));
    const int width = std::max(int(std::lround(exact.right())) - left, 1);
    const int height = std::max(int(std::lround(exact.bottom())) - top, 1);
    return {area.width < 0 ? left + width - 1 : left, area.height < 0 ? top + height - 1 : top,
            area.width < 0 ? -width : width, area.height < 0 ? -height : height};
}

// Computes the visible device pixels and hands them over 1:1.
bool paintPixels(QPainter& painter, const Area& target, const QImage& source,
                 const Area& sourceArea, StretchMode mode)
{
    const QTransform transform = painter.deviceTransform();
    const Area deviceArea = onDevice(target, transform);
    const QRect visible =
        (pixelsOf(deviceArea) & reachOf(painter)).toAlignedRect() & pixelsOf(deviceArea).toRect();
    if (visible.isEmpty()) {
        return true;
    }
    QImage layer(visible.size(), QImage::Format_ARGB32_Premultiplied);
    if (layer.isNull()) {
        return false;
    }
    layer.fill(Qt::transparent);
    if (!StretchBlt(layer, shifted(deviceArea, visible.topLeft()), source, sourceArea, mode)) {
        return false;
    }
    // Back to the painter's units, so that its own transform leads to exactly these pixels.
    painter.drawImage(transform.inverted().mapRect(QRectF(visible)), layer, QRectF(layer.rect()));
    return true;
}

} // namespace

bool StretchBlt(QPainter& target, Area targetArea, const QImage& source, Area sourceArea,
                StretchMode mode)
{
    const QRectF onto = pixelsOf(targetArea);
    const QRectF from = pixelsOf(sourceArea);
    if (!target.isActive() || onto.isEmpty() || from.isEmpty() || source.isNull() ||
        source.depth() != 32) {
        return false;
    }
    const bool wholeFactors = std::fmod(onto.width(), from.width()) == 0.0 &&
                              std::fmod(onto.height(), from.height()) == 0.0;
    const bool upright = !isMirrored(targetArea, sourceArea);
    if (target.deviceTransform().type() > QTransform::TxScale ||
        (upright && (wholeFactors || mode == StretchMode::ColorOnColor))) {
        paintBoxes(target, onto, source, from);
        return true;
    }
    return paintPixels(target, targetArea, source, sourceArea, mode);
}

} // namespace platform
