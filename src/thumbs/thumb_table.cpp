#include "thumbs/thumb_table.h"

#include <algorithm>

namespace thumbs {

void ThumbTable::resize(int files)
{
    m_rows.assign(static_cast<std::size_t>(std::max(0, files)) + 1, ThumbRow{});
}

void ThumbTable::fill(int row, const TileBox& box, const QString& path, int page)
{
    if (row >= 0 && row < rows()) {
        m_rows[static_cast<std::size_t>(row)] = {box, path, page, true};
    }
}

const ThumbRow* ThumbTable::filledRow(int row) const
{
    if (row < 0 || row >= rows()) {
        return nullptr;
    }
    const ThumbRow& found = m_rows[static_cast<std::size_t>(row)];
    return found.filled ? &found : nullptr;
}

std::optional<int> ThumbTable::rowAt(int page, int x, int y, int files) const
{
    for (int k = 0; k < files; ++k) {
        const ThumbRow* row = filledRow(k);
        if (row != nullptr && row->page == page && row->box.holds(x, y)) {
            return k;
        }
    }
    return std::nullopt;
}

} // namespace thumbs
