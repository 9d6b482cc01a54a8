#include "publishing/printing/sheet_layout.h"

#include "base/numbers.h"
#include "thumbs/frame_layout.h"
#include "thumbs/picture_fit.h"

#include <algorithm>
#include <cmath>

namespace printing {

namespace {

constexpr int kCellReserve = 11; // a cell is so much smaller than its share of the sheet
constexpr int kPercent = 100;
constexpr int kSmallestZoom = 10;

int zoomed(int length, int zoom)
{
    return base::narrow32(std::int64_t{length} * zoom / kPercent).value_or(length);
}

int centred(int length, std::int64_t content)
{
    const double start = length / 2.0 - static_cast<double>(content) / 2.0;
    return base::roundTo16(start).value_or(0);
}

int share(int length, int parts)
{
    return thumbs::wholeQuotient(length, parts).value_or(0);
}

int cellSize(int width, int columnsWanted)
{
    return columnsWanted == 0 ? 0 : width / columnsWanted - kCellReserve;
}

SheetLayout fillWithCells(QSize sheet, int cell)
{
    SheetLayout layout;
    layout.sheet = sheet;
    layout.PrintThumbSize = cell;
    layout.columns = share(sheet.width(), cell);
    layout.rows = share(sheet.height(), cell);
    layout.gridLeft = centred(sheet.width(), std::int64_t{cell} * layout.columns);
    layout.gridTop = centred(sheet.height(), std::int64_t{cell} * layout.rows);
    return layout;
}

} // namespace

// Counted in whole pixels of the printer, which may be wider than they are high.
std::optional<int> sheetWidth(int height, const platform::PaperMetrics& paper)
{
    const std::int64_t width = std::int64_t{paper.innerWidth} * paper.logPixelsY;
    const std::int64_t innerHeight = std::int64_t{paper.innerHeight} * paper.logPixelsX;
    if (width <= 0 || innerHeight <= 0) {
        return std::nullopt;
    }
    return base::narrow32(height * width / innerHeight);
}

SheetLayout layOutSheet(QSize page, int zoom, int columnsWanted, int viewportWidth)
{
    const QSize sheet(zoomed(page.width(), zoom), zoomed(page.height(), zoom));
    SheetLayout layout = fillWithCells(sheet, cellSize(sheet.width(), columnsWanted));
    layout.left = centred(viewportWidth, sheet.width());
    return layout;
}

// A small sheet comes to more columns than it was asked for, so less is asked for.
SheetLayout layOutPaper(QSize page, int columns)
{
    SheetLayout layout;
    for (int asked = columns; asked > 0; --asked) {
        layout = fillWithCells(page, std::min(cellSize(page.width(), asked), page.height()));
        if (layout.columns <= columns && holdsPictures(layout)) {
            break;
        }
    }
    return layout;
}

bool holdsPictures(const SheetLayout& layout)
{
    return layout.columns > 0 && layout.rows > 0 && !pictureRoom(layout).isEmpty();
}

thumbs::TilePlace sheetPlace(const SheetLayout& layout, int file)
{
    thumbs::TileGrid grid;
    grid.columns = layout.columns;
    grid.rows = layout.rows;
    return thumbs::tilePlace(grid, file);
}

QSize pictureRoom(const SheetLayout& layout)
{
    const int side = layout.PrintThumbSize - thumbs::kTileBorder;
    return {side, side};
}

QRectF pictureRect(const SheetLayout& layout, const thumbs::TilePlace& place, QSize naturalSize)
{
    const int cell = layout.PrintThumbSize;
    const QSize fit = thumbs::fitPicture(naturalSize, pictureRoom(layout));
    if (fit.width() <= 0 || fit.height() <= 0) {
        return {};
    }
    const QPointF corner(layout.gridLeft + place.column * cell, layout.gridTop + place.row * cell);
    return {corner + thumbs::pictureOffset({cell, cell}, fit), QSizeF(fit)};
}

QRectF samePlace(const QRectF& place, QSize sheet, QSize other)
{
    if (sheet.isEmpty()) {
        return {};
    }
    const double across = static_cast<double>(other.width()) / sheet.width();
    const double down = static_cast<double>(other.height()) / sheet.height();
    return {place.x() * across, place.y() * down, place.width() * across, place.height() * down};
}

QRectF onPaper(const QRectF& onSheet, QSize sheet, const platform::PaperMetrics& paper)
{
    return samePlace(onSheet, sheet, {paper.innerWidth, paper.innerHeight});
}

QSize pixelsWorthPrinting(QSizeF place, const platform::PaperMetrics& paper)
{
    constexpr int kFinestSeen = 300; // pixels in an inch, at reading distance
    const auto pixels = [](double length, int dotsPerInch) {
        const double finer = std::max(1.0, static_cast<double>(kFinestSeen) / dotsPerInch);
        return static_cast<int>(std::ceil(length * finer));
    };
    if (paper.isEmpty() || place.isEmpty()) {
        return {};
    }
    return {pixels(place.width(), paper.logPixelsX), pixels(place.height(), paper.logPixelsY)};
}

int wholeSheetZoom(QSize page, QSize viewport)
{
    if (page.isEmpty()) {
        return kPercent;
    }
    const int margin = 2 * thumbs::kSheetMargin;
    const int across = share((viewport.width() - margin) * kPercent, page.width());
    const int down = share((viewport.height() - margin) * kPercent, page.height());
    return std::clamp(std::min(across, down), kSmallestZoom, kPercent);
}

} // namespace printing
