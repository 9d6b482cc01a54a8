#pragma once

#include <QString>

// Where a file goes is decided by its extension alone; contents are never looked at.
namespace files {

// The text behind the last "." in lower case. A path without a dot gives the whole path, which
// matches no list.
QString extensionOf(const QString& path);

// The formats that the program reads itself: pcx, psd, tga, tif, lbm, bbm.
bool isOwnFormat(const QString& path);

// Extensions that the file name field hands to the routing instead of straight to the viewer. The
// list differs from that of the routing on purpose.
bool isPlayerBound(const QString& path);

enum class Route { Viewer, Flash, Media, Web };

// Where the routing sends a path.
Route routeOf(const QString& path);

} // namespace files
