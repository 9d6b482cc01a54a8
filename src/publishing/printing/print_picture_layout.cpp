#include "publishing/printing/print_picture_layout.h"

#include "base/numbers.h"

namespace printing {

namespace {

constexpr double kMarginShare = 4; // whatever the printer's resolution is

constexpr int kAlignmentsARow = 3;
constexpr int kNear = 0; // steps from the near edge to the far one
constexpr int kMiddle = 1;

int rounded(double value)
{
    return static_cast<int>(base::roundHalfEven(value));
}

int sidePixels(int millimetres, double marginsTogether)
{
    return rounded(millimetres * double{kPagePixelsAnInch} / platform::kMillimetresInInch -
                   marginsTogether / kMarginShare);
}

int offsetAt(int step, int room)
{
    return step == kNear ? 0 : step == kMiddle ? rounded(room / 2.0) : room;
}

} // namespace

QSize pagePixels(QSize paper, const Margins& margins)
{
    return {sidePixels(paper.width(), double(margins.left) + margins.right),
            sidePixels(paper.height(), double(margins.top) + margins.bottom)};
}

QPoint alignedOffset(std::int32_t align, QSize page, QSize picture)
{
    if (align < 0 || align >= static_cast<std::int32_t>(kAlignments.size())) {
        return {};
    }
    const QSize room = page - picture;
    return {offsetAt(align % kAlignmentsARow, room.width()),
            offsetAt(align / kAlignmentsARow, room.height())};
}

QSize shrunkInto(QSize page, QSize picture)
{
    const bool fits = picture.width() <= page.width() && picture.height() <= page.height();
    return fits ? picture : picture.scaled(page, Qt::KeepAspectRatio).expandedTo({1, 1});
}

std::array<QRect, 4> frameSides(QPoint corner, QSize distance, QSize page)
{
    const QRect frame(corner, distance + QSize(1, 1));
    const QRect all(QPoint(0, 0), page);
    return {QRect(frame.topLeft(), frame.topRight()) & all,
            QRect(frame.bottomLeft(), frame.bottomRight()) & all,
            QRect(frame.topLeft(), frame.bottomLeft()) & all,
            QRect(frame.topRight(), frame.bottomRight()) & all};
}

} // namespace printing
