#include "thumbs/tile_table.h"

#include <algorithm>

namespace thumbs {

void TileTable::resize(int files)
{
    m_rows.assign(static_cast<std::size_t>(std::max(0, files)) + 1, TileRow{});
    m_tiles.clear();
}

void TileTable::fill(int row, const TileBox& box, const QString& path, int page)
{
    if (row < 0 || row >= rows()) {
        return;
    }
    TileRow& target = m_rows[static_cast<std::size_t>(row)];
    if (!target.filled) {
        m_tiles.insert(std::lower_bound(m_tiles.begin(), m_tiles.end(), row), row);
    }
    target = {box, path, page, true};
}

const TileRow* TileTable::filledRow(int row) const
{
    if (row < 0 || row >= rows()) {
        return nullptr;
    }
    const TileRow& found = m_rows[static_cast<std::size_t>(row)];
    return found.filled ? &found : nullptr;
}

std::optional<int> TileTable::rowAt(int page, int x, int y, int files) const
{
    for (int k = 0; k < files; ++k) {
        const TileRow* row = filledRow(k);
        if (row != nullptr && row->page == page && row->box.holds(x, y)) {
            return k;
        }
    }
    return std::nullopt;
}

} // namespace thumbs
