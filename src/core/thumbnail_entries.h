#pragma once

#include <array>

namespace core {

// The entries that say how thumbnails look, numbered from 0, as menus and settings offer them.
inline constexpr int kThumbnailSizes = 30;
inline constexpr int kThumbnailSizeStep = 10; // pixels; also the size of the first entry

inline constexpr std::array kThumbnailColourNames{"Black",       "Antraciet",  "Dark Gray",
                                                  "Middle Gray", "Light Gray", "White Gray"};

} // namespace core
