#include "platform/desktop/wallpaper_styles.h"

#include <array>
#include <cstddef>

namespace platform {

namespace {

// In the order of the styles.
constexpr std::array kNames{
    StyleNames{WallpaperStyle::Center, "centered", "center", 1, 6},
    StyleNames{WallpaperStyle::Tile, "wallpaper", "tile", 2, 3},
    StyleNames{WallpaperStyle::Stretch, "stretched", "stretch", 3, 0},
};

} // namespace

const StyleNames& namesOf(WallpaperStyle style)
{
    return kNames[static_cast<std::size_t>(style)];
}

} // namespace platform
