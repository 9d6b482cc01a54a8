#pragma once

#include "platform/desktop/wallpaper.h"

namespace platform {

// What each kind of desktop calls a style.
struct StyleNames {
    WallpaperStyle style;
    const char* gsettings;   // picture-options of GNOME, MATE and Cinnamon
    const char* fileManager; // the mode of PCManFM and PCManFM-Qt
    int xfconf;              // image-style of Xfce
    int plasma;              // FillMode of Plasma's picture wallpaper
};

[[nodiscard]] const StyleNames& namesOf(WallpaperStyle style);

} // namespace platform
