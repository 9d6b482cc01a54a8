#pragma once

#include "paint.h"

#include <span>

namespace tools {

// A place on a frame: how high it stands, in thicknesses of the frame, what colour it has and how
// much it shines.
struct FrameSurface {
    double height = 0;
    Tint colour;
    double gloss = 0;
};

// A kind of frame. The place runs from the outer edge (0) to the picture (1), and along the frame
// in thicknesses; along it everything comes again after one of them.
struct Moulding {
    const char* name; // of its picture; the first two characters are what its tiles are named by
    FrameSurface (*at)(double across, double along);
    // What comes again doesn't go on around the corners, which look as the ends of a thickness do.
    bool plainCorners = false;
};

[[nodiscard]] std::span<const Moulding> mouldings();

} // namespace tools
