#pragma once

#include <QtGlobal>
#include <vector>

// How a scaled transfer maps one direction of its target onto its source. Both directions are
// mapped on their own, for the visible target pixels only.
namespace platform {

// A row or column range of a transfer as its caller gives it: a negative length covers the pixels
// from, from - 1, ... and mirrors.
struct StretchSide {
    qint64 from = 0;
    qint64 length = 0;
    int surface = 0; // pixels of the surface in this direction
};

enum class AxisMethod {
    Nearest, // the source pixel under the target pixel's middle
    Average, // all source pixels that the target pixel covers, by covered length
    Linear,  // the two source pixels whose middles are nearest
};

// The source pixels behind one target pixel: first, the ones between, last. The pixels between
// weigh 1; scale makes the sum of all weights 1. With one pixel only head counts.
struct StretchSpan {
    int first = 0;
    int count = 1;
    float head = 1.0F;
    float tail = 0.0F;
    float scale = 1.0F;

    [[nodiscard]] int last() const { return first + count - 1; }
    friend bool operator==(const StretchSpan&, const StretchSpan&) = default;
};

// The target pixels targetFirst, targetFirst + 1, ... that lie on both surfaces. Empty when none
// do.
struct StretchAxis {
    int targetFirst = 0;
    std::vector<StretchSpan> spans;
};

// The longest side that a transfer takes: it notes down every column and row, which of a picture
// that is nothing but long takes more memory than the pixels.
constexpr int kLongestStretchSide = 1 << 22; // pixels

[[nodiscard]] StretchAxis mapAxis(StretchSide target, StretchSide source, AxisMethod method);

} // namespace platform
