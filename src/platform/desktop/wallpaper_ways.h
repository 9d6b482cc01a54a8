#pragma once

#include "platform/desktop/wallpaper.h"

// One way for each kind of desktop. False: it hasn't taken the picture. A desktop that looks only
// at the picture's address takes no notice of another picture in the same file, so it is given no
// picture first, or another spelling of the path.
namespace platform {

bool showOnGnome(const WallpaperRequest& request); // and whoever shares its settings
bool showOnMate(const WallpaperRequest& request);
bool showOnCinnamon(const WallpaperRequest& request);
bool showOnXfce(const WallpaperRequest& request);
bool showOnPlasma(const WallpaperRequest& request);
bool showOnLxqt(const WallpaperRequest& request);
bool showOnLxde(const WallpaperRequest& request);

// Any desktop that has the portal; it keeps its style.
bool showByPortal(const WallpaperRequest& request);

} // namespace platform
