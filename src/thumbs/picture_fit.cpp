#include "thumbs/picture_fit.h"

#include "base/numbers.h"

namespace thumbs {

namespace {

// A length that has to follow the other side's shrinking; it stays where the result can't be held.
int follow(int length, int box, int other)
{
    const std::optional<std::int16_t> followed =
        base::roundTo16(static_cast<double>(length) * box / other);
    return followed ? *followed : length;
}

} // namespace

QSize fitPicture(QSize picture, QSize box)
{
    int width = picture.width();
    int height = picture.height();
    if (width > box.width()) {
        height = follow(height, box.width(), width);
        width = box.width();
    }
    if (height > box.height()) {
        width = follow(width, box.height(), height);
        height = box.height();
    }
    return {width, height};
}

QPointF pictureOffset(QSize cell, QSize picture)
{
    return {(cell.width() - picture.width()) / 2.0, (cell.height() - picture.height()) / 2.0};
}

} // namespace thumbs
