#pragma once

#include <QString>
#include <optional>

namespace platform {

enum class WallpaperStyle { Center, Tile, Stretch };

struct WallpaperRequest {
    QString path;                             // of the picture
    std::optional<WallpaperStyle> style = {}; // without one the desktop keeps its own
};

// Tells the desktop that this session runs, in that desktop's own way, and where there is none or
// it fails the portal, which knows no styles. Each step waits a few seconds at most, and events
// don't run. False where there is no such file, or nobody has taken it.
bool showWallpaper(const WallpaperRequest& request);

} // namespace platform
