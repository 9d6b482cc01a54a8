#pragma once

#include "platform/devices/printed_paper.h"

#include <QPoint>
#include <QRect>
#include <QSize>
#include <array>
#include <cstdint>

// Where a picture lies on its page. The page is measured in pixels of 96 to the inch, whatever the
// printer has; only the margins come in the printer's own.
namespace printing {

inline constexpr int kPagePixelsAnInch = 96;

// What the printer can't reach, in its pixels.
struct Margins {
    std::int32_t top = 0;
    std::int32_t left = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    bool operator==(const Margins&) const = default;
};

// By its number as the property PaperSize. The first one has the size that is typed.
inline constexpr std::array kPapers{
    platform::PaperRow{"Manual ->", 0, 0, platform::Paper::Custom},
    platform::kNamedPapers[0],
    platform::kNamedPapers[1],
    platform::kNamedPapers[2],
};
inline constexpr int kManualPaper = 0;

// By their numbers as the property Align: three to a row of the page, from its top left.
inline constexpr std::array kAlignments{
    "Top - Left",     "Top - Center",  "Top - Right",     "Middle - Left",  "Middle - Center",
    "Middle - Right", "Bottom - Left", "Bottom - Center", "Bottom - Right",
};

// The page image for paper in millimetres, less the margins at a quarter; each side is rounded
// once, half to even. A side may be 0 or less.
[[nodiscard]] QSize pagePixels(QSize paper, const Margins& margins);

// The corner of a picture that is aligned on a page; negative where it is larger. A number that is
// no alignment leaves it in the top left corner.
[[nodiscard]] QPoint alignedOffset(std::int32_t align, QSize page, QSize picture);

// The size of a picture on a page that it is to fit on: reduced in its proportions, never enlarged.
[[nodiscard]] QSize shrunkInto(QSize page, QSize picture);

// The sides of a frame as lines one pixel wide, as far as they are on the page; both ends of the
// distance between the corners belong to it. Sides that the page doesn't reach are empty.
[[nodiscard]] std::array<QRect, 4> frameSides(QPoint corner, QSize distance, QSize page);

} // namespace printing
