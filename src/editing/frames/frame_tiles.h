#pragma once

#include <QImage>
#include <QString>
#include <array>
#include <cstddef>

// The frame library in the program's folder: a picture for each style, and eight tiles for each.
namespace frames {

enum class Tile { Left, Right, Top, Bottom, LeftTop, RightTop, LeftBottom, RightBottom };
inline constexpr std::size_t kTiles = 8;

// The folder with the pictures of the styles.
[[nodiscard]] QString stylesFolder();

// By what the tiles of a style are named: the first two characters of the file name of its picture,
// without blanks before them.
[[nodiscard]] QString styleOf(const QString& picturePath);

// The tiles of a style as squares of one size. Each is read once, when it is first asked for.
class FrameTiles {
public:
    FrameTiles(QString style, int side);

    // Null for a tile that is missing or can't be read.
    [[nodiscard]] const QImage& at(Tile tile);

private:
    struct Entry {
        bool wasRead = false;
        QImage image;
    };

    QString m_style;
    int m_side; // pixels
    std::array<Entry, kTiles> m_entries;
};

} // namespace frames
