#include "thumbs/tile_grid.h"

#include "base/numbers.h"

#include <algorithm>

namespace thumbs {

namespace {

std::int16_t centred(int pageLength, int step, int count, std::int16_t previous)
{
    const double start = pageLength / 2.0 - static_cast<double>(step) * count / 2.0;
    return base::roundTo16(start).value_or(previous);
}

} // namespace

std::optional<int> wholeQuotient(std::int64_t dividend, std::int64_t divisor)
{
    if (divisor == 0) {
        return std::nullopt;
    }
    return base::narrow32(dividend / divisor);
}

TileGrid makeTileGrid(QSize page, int pictureSize, QSize extra, const TileGrid& previous)
{
    TileGrid grid;
    grid.cellWidth = kTileBorder + pictureSize + extra.width();
    grid.cellHeight = kTileBorder + pictureSize + extra.height();
    const int stepX = kTileGap + grid.cellWidth;
    const int stepY = kTileGap + grid.cellHeight;
    grid.columns = wholeQuotient(page.width(), stepX).value_or(previous.columns);
    grid.rows = wholeQuotient(page.height(), stepY).value_or(previous.rows);
    grid.left = centred(page.width(), stepX, grid.columns, previous.left);
    grid.top = centred(page.height(), stepY, grid.rows, previous.top);
    return grid;
}

TileBox tileBox(const TileGrid& grid, int column, int row)
{
    const int left = grid.left + column * (kTileGap + grid.cellWidth);
    const int top = grid.top + row * (kTileGap + grid.cellHeight);
    return {left, top, left + grid.cellWidth, top + grid.cellHeight};
}

TilePlace tilePlace(const TileGrid& grid, int file)
{
    const int perPage = grid.tilesPerPage();
    if (perPage <= 0) {
        return {file + 1, 0, 0};
    }
    const int onPage = file % perPage;
    const int columns = std::max(1, grid.columns);
    return {file / perPage, onPage % columns, onPage / columns};
}

ViewportMeasure measureViewport(QSize viewport, int pictureSize)
{
    ViewportMeasure measure;
    measure.cellSize = kTileBorder + pictureSize;
    const int step = kTileGap + measure.cellSize;
    measure.columns = wholeQuotient(viewport.width(), step).value_or(0);
    measure.tilesPerPage = measure.columns * wholeQuotient(viewport.height(), step).value_or(0);
    return measure;
}

} // namespace thumbs
