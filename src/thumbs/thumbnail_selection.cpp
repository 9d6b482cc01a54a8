#include "thumbs/accessible_tiles.h"
#include "thumbs/page_viewport.h"
#include "thumbs/thumbnail_list.h"
#include "thumbs/tile_keys.h"

#include <QPointer>
#include <QScrollBar>
#include <algorithm>

void ThumbNailList::pressPage(int page, QPoint place)
{
    if (m_surface.state.IsPrintPreview || m_surface.state.IsHtmlRun) {
        return;
    }
    drawHighlight(m_selection.page, m_selection.tile, m_values.ThumbNailBorderColor);
    const std::optional<int> row =
        m_surface.state.ThumbTable.rowAt(page, place.x(), place.y(), m_surface.File1.count());
    if (!row) {
        return;
    }
    m_selection = {m_surface.state.ThumbTable.filledRow(*row)->path, *row, *row, page, true};
    drawHighlight(page, *row, m_values.ThumbNailSelectColor);
    thumbs::announceTile(*this, *row);
    emit ThumbClick(m_selection.index, QString(m_selection.path));
}

void ThumbNailList::doubleClickPage(int /*page*/)
{
    if (m_surface.state.IsPrintPreview || m_selection.path.isEmpty()) {
        return;
    }
    const QPointer<ThumbNailList> alive = this;
    emit ThumbDblClick(m_selection.index, QString(m_selection.path));
    if (alive != nullptr) {
        m_selection.path.clear();
    }
}

void ThumbNailList::pressTile(int row)
{
    const thumbs::TileRow* tile = m_surface.state.ThumbTable.filledRow(row);
    if (tile == nullptr) {
        return;
    }
    bringIntoSight(*tile);
    pressPage(tile->page, tile->box.rect().center());
}

void ThumbNailList::doubleClickTile()
{
    doubleClickPage(m_selection.page);
}

bool ThumbNailList::pressTileByKey(int key)
{
    const auto tile =
        thumbs::tileAfterKey(key, selectedTile(), {tiles(), grid().columns, grid().tilesPerPage()});
    if (tile) {
        pressTile(*tile);
    }
    return tile.has_value();
}

int ThumbNailList::selectedTile() const
{
    return m_selection.made ? m_selection.tile : thumbs::kNoTile;
}

std::span<const int> ThumbNailList::tiles() const
{
    const std::vector<int>& rows = m_surface.state.ThumbTable.tiles();
    return {rows.begin(), std::lower_bound(rows.begin(), rows.end(), m_surface.File1.count())};
}

// No further than it takes; a tile taller than the viewport shows its top.
void ThumbNailList::bringIntoSight(const thumbs::TileRow& tile)
{
    const QRect place =
        tile.box.grown(1).rect().translated(m_surface.pages.stack().pageRect(tile.page).topLeft());
    const int highest = place.bottom() + 1 - m_surface.viewportSize().height();
    const int value = std::min(std::max(m_surface.V_Scroll.value(), highest), place.top());
    m_surface.V_Scroll.setValue(value);
}

void ThumbNailList::drawHighlight(int page, int row, base::Colour colour)
{
    const thumbs::TileRow* tile = m_surface.state.ThumbTable.filledRow(row);
    if (tile == nullptr || m_surface.pages.bitmap(page) == nullptr) {
        return;
    }
    const thumbs::TileBox ring = tile->box.grown(1);
    m_surface.pages.frameBox(page, ring, colour);
    m_surface.showTile(page, ring);
}
