#pragma once

#include <QString>

namespace acquire {

// The one file that the desktop is told of, in the user's data folder.
[[nodiscard]] QString wallpaperFile();

// Makes the viewer's picture the wallpaper, in the style whose flag of core::state() is set, and
// clears the flag. Without one the desktop keeps its style. Failures are passed over: each step
// that can be done is.
void setWallpaper();

} // namespace acquire
