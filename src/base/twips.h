#pragma once

namespace base {

// Windows and menus measure in twips, 15 to a device-independent pixel.
inline constexpr int kTwipsPerPixel = 15;

constexpr int twipsFromPixels(int pixels)
{
    return pixels * kTwipsPerPixel;
}

// Whole pixels, rounded towards zero.
constexpr int pixelsFromTwips(int twips)
{
    return twips / kTwipsPerPixel;
}

} // namespace base
