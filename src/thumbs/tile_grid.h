#pragma once

#include <QRect>
#include <cstdint>
#include <optional>

// How tiles stand on a page, as plain numbers. Lengths are device-independent pixels.
namespace thumbs {

inline constexpr int kTileGap = 5;     // between tiles
inline constexpr int kTileBorder = 10; // a tile is this much larger than its picture square

// The quotient without its remainder; nothing for a divisor of 0.
[[nodiscard]] std::optional<int> wholeQuotient(std::int64_t dividend, std::int64_t divisor);

struct TileGrid {
    int cellWidth = 0; // a tile without the gap
    int cellHeight = 0;
    int columns = 0;
    int rows = 0;
    std::int16_t left = 0; // of the first tile on its page
    std::int16_t top = 0;

    [[nodiscard]] int tilesPerPage() const { return columns * rows; }
};

// The grid of a page, centred with one trailing gap counted to it, so that it stands half a gap up
// and to the left. Where a number can't be computed or doesn't fit, the previous one stays.
[[nodiscard]] TileGrid makeTileGrid(QSize page, int pictureSize, QSize extra,
                                    const TileGrid& previous = {});

// Corners of a tile. Both are part of it: the rectangle is one pixel wider and higher than the
// cell.
struct TileBox {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    [[nodiscard]] bool holds(int x, int y) const
    {
        return left <= x && x <= right && top <= y && y <= bottom;
    }
    [[nodiscard]] TileBox grown(int by) const
    {
        return {left - by, top - by, right + by, bottom + by};
    }
    [[nodiscard]] QRect rect() const { return {QPoint(left, top), QPoint(right, bottom)}; }

    friend bool operator==(const TileBox&, const TileBox&) = default;
};

// Column and row from 0.
[[nodiscard]] TileBox tileBox(const TileGrid& grid, int column, int row);

// Where a file's tile stands, all from 0. On a page that holds no tile at all every file turns the
// page first.
struct TilePlace {
    int page = 0;
    int column = 0;
    int row = 0;
};
[[nodiscard]] TilePlace tilePlace(const TileGrid& grid, int file);

// What the public measures tell: they look at the viewport instead of the page and know no extras.
struct ViewportMeasure {
    int cellSize = 0;
    int columns = 0;
    int tilesPerPage = 0;
};
[[nodiscard]] ViewportMeasure measureViewport(QSize viewport, int pictureSize);

} // namespace thumbs
