#pragma once

#include <QString>
#include <QStringView>

// What a tile shows for a file, by the text behind the last dot of its name.
namespace thumbs {

enum class TileSource {
    File,       // the file through the picture loader
    OwnDecoder, // the file through the program's own readers
    Icon,       // a delivered picture
};

struct TileKind {
    QStringView extension;
    QStringView badge; // under Images, without ".ico"
    TileSource source;
    QStringView icon; // for TileSource::Icon, under Images, without ".ico"
};

// The extension comes in lower case, as files::extensionOf gives it. The table is closed: an
// extension that it doesn't hold gets its last row.
[[nodiscard]] const TileKind& tileKindFor(QStringView extension);

// The badge's file name under the program folder. While the frame composer is open, JPG and GIF
// files carry a neutral one.
[[nodiscard]] QString badgeFile(const TileKind& kind, bool frameWindowOpen);
[[nodiscard]] QString iconFile(const TileKind& kind);

} // namespace thumbs
