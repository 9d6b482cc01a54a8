#include "acquire/capture_geometry.h"

#include "base/numbers.h"

#include <algorithm>

namespace acquire {

namespace {

constexpr double kBrightFrom = 62255 / 2.0; // of the number of a colour
constexpr base::Colour kBlack = base::rgb(0, 0, 0);
constexpr base::Colour kWhite = base::rgb(255, 255, 255);

// Of the picker's box, in pixels: the room that it needs beside the pointer, and how far from the
// pointer it begins on either side.
constexpr QSize kBoxRoom(150, 50);
constexpr QPoint kBoxBehind(-154, -54);
constexpr int kBoxAhead = 12;

int wholePixel(double place)
{
    return static_cast<int>(base::roundHalfEven(place));
}

// Where something of a length begins so that it is centred in a span that ends at `end`.
int centred(int end, int span, int length)
{
    return wholePixel(end - span / 2.0 - length / 2.0);
}

} // namespace

QRect rectangleBetween(QPoint corner, QPoint opposite)
{
    const int left = std::min(corner.x(), opposite.x());
    const int top = std::min(corner.y(), opposite.y());
    const int right = std::max(corner.x(), opposite.x());
    const int bottom = std::max(corner.y(), opposite.y());
    return {left, top, right - left, bottom - top};
}

QString sizeTextOf(QSize size)
{
    return QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
}

std::optional<QPoint> sizeTextPlace(const QRect& rectangle, QSize text)
{
    const int width = rectangle.width();
    const int height = rectangle.height();
    if (width <= text.width() || height <= text.height()) {
        return std::nullopt;
    }
    return QPoint(centred(rectangle.x() + width, width, text.width()),
                  centred(rectangle.y() + height, height, text.height()));
}

QPoint middleOf(const QRect& rectangle)
{
    return {centred(rectangle.x() + rectangle.width(), rectangle.width(), 0),
            centred(rectangle.y() + rectangle.height(), rectangle.height(), 0)};
}

base::Colour sizeTextColour(base::Colour behind)
{
    return behind >= kBrightFrom ? kBlack : kWhite;
}

QPoint pickerBoxPlace(QSize window, QPoint pointer)
{
    const QSize room(window.width() - pointer.x(), window.height() - pointer.y());
    return {pointer.x() + (room.width() < kBoxRoom.width() ? kBoxBehind.x() : kBoxAhead),
            pointer.y() + (room.height() < kBoxRoom.height() ? kBoxBehind.y() : kBoxAhead)};
}

} // namespace acquire
