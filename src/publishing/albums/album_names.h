#pragma once

#include <QString>

namespace albums {

// The program's rule for names in albums: without blanks at its ends, with "_" for blanks inside
// and for characters that some file system or address refuses, and 211 characters long at most.
// Upper case stays.
[[nodiscard]] QString cleanedName(const QString& name);

// What the settings of the thumbnails say about the files of an album.
struct NameRules {
    bool CompressToJPG = true;   // thumbnails as JPEG, else as BMP
    bool Compress_NO_GIF = true; // a GIF stays what it is
};

// The bare names of what an album has for one file. Two files may come to the same ones.
struct AlbumNames {
    QString cleaned; // the file's own, cleaned and in lower case
    QString thumbnail;
    QString full;
    QString detail;
    bool keepsGif = false; // the full picture is the GIF as it is
};
[[nodiscard]] AlbumNames albumNames(const QString& fileName, const NameRules& rules);

} // namespace albums
