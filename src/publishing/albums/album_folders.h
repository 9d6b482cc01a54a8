#pragma once

#include <QString>

namespace albums {

// The folder of an album's full pictures and detail pages, in the album's folder.
inline constexpr QLatin1String kOriginals("OriginalPics");

// Where the album of a folder goes, without separators at the ends. platform::makeFolder() makes
// them.
struct AlbumFolders {
    QString web; // of all albums below the root
    QString album;
    QString originals;
};

// The album lies below "Web" as its folder does below what plays the role of its drive. An empty
// root is the program's folder.
[[nodiscard]] AlbumFolders albumFolders(const QString& root, const QString& folder);

} // namespace albums
