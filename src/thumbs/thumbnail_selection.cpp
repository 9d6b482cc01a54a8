#include "thumbs/page_viewport.h"
#include "thumbs/thumbnail_list.h"

#include <QPointer>

void ThumbNailList::pressPage(int page, QPoint place)
{
    if (m_state.IsPrintPreview || m_state.IsHtmlRun) {
        return;
    }
    drawHighlight(m_selection.page, m_selection.tile, m_values.ThumbNailBorderColor);
    const std::optional<int> row =
        m_state.ThumbTable.rowAt(page, place.x(), place.y(), m_files.count());
    if (!row) {
        return;
    }
    m_selection = {m_state.ThumbTable.filledRow(*row)->path, *row, *row, page};
    drawHighlight(page, *row, m_values.ThumbNailSelectColor);
    emit ThumbClick(m_selection.index, QString(m_selection.path));
}

void ThumbNailList::doubleClickPage(int /*page*/)
{
    if (m_state.IsPrintPreview || m_selection.path.isEmpty()) {
        return;
    }
    const QPointer<ThumbNailList> alive = this;
    emit ThumbDblClick(m_selection.index, QString(m_selection.path));
    if (alive != nullptr) {
        m_selection.path.clear();
    }
}

void ThumbNailList::drawHighlight(int page, int row, base::Colour colour)
{
    const thumbs::TileRow* tile = m_state.ThumbTable.filledRow(row);
    if (tile == nullptr || m_sheet.bitmap(page) == nullptr) {
        return;
    }
    const thumbs::TileBox ring = tile->box.grown(1);
    m_sheet.frameBox(page, ring, colour);
    showTile(page, ring);
}
