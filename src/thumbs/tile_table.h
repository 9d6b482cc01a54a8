#pragma once

#include "thumbs/tile_grid.h"

#include <QString>
#include <optional>
#include <vector>

namespace thumbs {

inline constexpr int kNoTile = -1; // in place of a row

// One file's tile: its box on its page, its full path, its page from 0.
struct TileRow {
    TileBox box;
    QString path;
    int page = 0;
    bool filled = false; // false: the file got no tile (yet)
};

// The tiles of a run, one row per file and one spare. Rows outside are read as never filled, and
// writing one is passed over: a run that goes on after another run has changed the table does that.
class TileTable {
public:
    // Rows 0 to files; what stood here is discarded.
    void resize(int files);

    [[nodiscard]] int rows() const { return static_cast<int>(m_rows.size()); }
    // False for the spare row and outside.
    [[nodiscard]] bool hasRow(int row) const { return row >= 0 && row < rows() - 1; }
    void fill(int row, const TileBox& box, const QString& path, int page);

    // The row if its file got a tile, else null.
    [[nodiscard]] const TileRow* filledRow(int row) const;

    // The rows whose files got a tile, ascending.
    [[nodiscard]] const std::vector<int>& tiles() const { return m_tiles; }

    // The first of the rows 0 to files - 1 whose tile holds the point of the page, edges included.
    [[nodiscard]] std::optional<int> rowAt(int page, int x, int y, int files) const;

private:
    std::vector<TileRow> m_rows = std::vector<TileRow>(1);
    std::vector<int> m_tiles;
};

// What was clicked last. A press between tiles leaves all of it.
struct Selection {
    QString path;
    int index = 0; // row of the table
    int tile = 0;  // row whose highlight is on the page; the same number
    int page = 0;
    bool made = false; // since the folder was shown
};

} // namespace thumbs
