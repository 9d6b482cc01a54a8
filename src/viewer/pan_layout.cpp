#include "viewer/pan_layout.h"

#include "base/numbers.h"

#include <algorithm>

namespace viewer {

namespace {

int toPixels(double length)
{
    return static_cast<int>(base::roundHalfEven(length));
}

QSize miniatureSize(QSize client, QSize picture)
{
    if (client.width() >= picture.width() && client.height() >= picture.height()) {
        return picture;
    }
    const double byWidth = static_cast<double>(client.width()) / picture.width();
    const double byHeight = static_cast<double>(client.height()) / picture.height();
    if (byWidth < byHeight) {
        return {client.width(), std::max(toPixels(picture.height() * byWidth), 1)};
    }
    return {std::max(toPixels(picture.width() * byHeight), 1), client.height()};
}

} // namespace

QRect miniaturePlace(QSize client, QSize picture)
{
    const QSize size = miniatureSize(client, picture);
    return {QPoint((client.width() - size.width()) / 2, (client.height() - size.height()) / 2),
            size};
}

QRect clipRectangle(const QRect& miniature, QSize picture, const ViewedPart& viewed)
{
    const double acrossX = static_cast<double>(miniature.width()) / picture.width() / viewed.zoom;
    const double acrossY = static_cast<double>(miniature.height()) / picture.height() / viewed.zoom;
    const double left = miniature.x() + viewed.barValues.x() * acrossX;
    const double top = miniature.y() + viewed.barValues.y() * acrossY;
    const QPoint corner(toPixels(left), toPixels(top));
    const QPoint end(toPixels(left + viewed.area.width() * acrossX),
                     toPixels(top + viewed.area.height() * acrossY));
    return {corner, QSize(end.x() - corner.x(), end.y() - corner.y())};
}

QRect pointerRange(const QRect& miniature, const QRect& clip, QPoint pressed)
{
    const QPoint start = miniature.topLeft() - clip.topLeft() + pressed;
    return {start, QSize(std::max(miniature.width() - clip.width(), 0) + 1,
                         std::max(miniature.height() - clip.height(), 0) + 1)};
}

QPoint confined(QPoint pointer, const QRect& range)
{
    return {std::clamp(pointer.x(), range.left(), range.right()),
            std::clamp(pointer.y(), range.top(), range.bottom())};
}

std::optional<int> barValueFor(const PanSpan& span, int pictureLength, int zoom, int maximum)
{
    if (span.clipStart + span.clipLength >= span.miniatureStart + span.miniatureLength) {
        return maximum;
    }
    const double scale = static_cast<double>(span.miniatureLength) / pictureLength;
    const int value = toPixels((span.clipStart - span.miniatureStart) / scale * zoom);
    if (value < 0) {
        return std::nullopt;
    }
    return std::min(value, maximum);
}

} // namespace viewer
