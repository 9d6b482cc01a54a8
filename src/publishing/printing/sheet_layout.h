#pragma once

#include "platform/devices/printers.h"
#include "thumbs/tile_grid.h"

#include <QPointF>
#include <QRectF>
#include <QSize>
#include <optional>

// How the pictures of a folder stand on sheets, as plain numbers. Lengths are device-independent
// pixels of the screen, where nothing else is told.
namespace printing {

// The width of a sheet of the height given, in the proportions of the printable part of the paper.
// Nothing where the paper has none.
[[nodiscard]] std::optional<int> sheetWidth(int height, const platform::PaperMetrics& paper);

struct SheetLayout {
    QSize sheet;
    int left = 0;           // of the sheet in its frame
    int PrintThumbSize = 0; // the side of a cell; cells touch
    int columns = 0;
    int rows = 0;
    int gridLeft = 0; // of the first cell on its sheet
    int gridTop = 0;
};

// The sheets of a page size at a zoom, in percent. What the columns wanted leave undefined is 0;
// one column on wide paper has no rows.
[[nodiscard]] SheetLayout layOutSheet(QSize page, int zoom, int columnsWanted, int viewportWidth);

// A sheet of the page size for so many columns and at least one row, whatever it is shown as. Where
// that number can't be had it is the next smaller one that can.
[[nodiscard]] SheetLayout layOutPaper(QSize page, int columns);

// Whether there is a cell at all, and room for a picture in it.
[[nodiscard]] bool holdsPictures(const SheetLayout& layout);

// Sheet, column and row of a file, all from 0. Where a sheet has no place at all, every file takes
// the next one.
[[nodiscard]] thumbs::TilePlace sheetPlace(const SheetLayout& layout, int file);

// The room of a picture in its cell.
[[nodiscard]] QSize pictureRoom(const SheetLayout& layout);

// Where a picture of the size given stands on its sheet. Empty for one that has no room.
[[nodiscard]] QRectF pictureRect(const SheetLayout& layout, const thumbs::TilePlace& place,
                                 QSize naturalSize);

// The same place on a sheet of another size.
[[nodiscard]] QRectF samePlace(const QRectF& place, QSize sheet, QSize other);

// The same place on paper, in the printer's pixels.
[[nodiscard]] QRectF onPaper(const QRectF& onSheet, QSize sheet,
                             const platform::PaperMetrics& paper);

// The pixels that are worth having of a picture in such a place on paper, given in the printer's
// pixels: as fine as the printer is asked to print, and at least as fine as the eye can tell. Empty
// without paper.
[[nodiscard]] QSize pixelsWorthPrinting(QSizeF place, const platform::PaperMetrics& paper);

// The zoom, from 10 to 100 percent, at which a sheet of the page size is in sight as a whole.
[[nodiscard]] int wholeSheetZoom(QSize page, QSize viewport);

} // namespace printing
