#include "thumbs/tile_maker.h"

#include "core/progress_strip.h"
#include "platform/desktop/dialogs.h"
#include "thumbs/bar_texts.h"
#include "thumbs/page_limit.h"
#include "thumbs/picture_fit.h"
#include "thumbs/thumbnail_list.h"

namespace thumbs {

TileMaker::TileMaker(ThumbNailList& list)
    : m_list(list)
    , m_alive(&list)
{
}

std::optional<int> TileMaker::begin()
{
    m_list.ResetLoading();
    GalleryState& state = m_list.surface().state;
    state.IsPrintPreview = false;
    state.IsHtmlRun = false;
    layOut();
    return m_list.isDesignTime() ? beginDesign() : acceptFolder();
}

void TileMaker::layOut()
{
    RunSurface& surface = m_list.surface();
    GalleryState& state = surface.state;
    surface.layoutFirstPage();
    const QSize extra(m_list.ThumbnailExtraWidth(), m_list.ThumbnailExtraHeight());
    state.grid =
        makeTileGrid(surface.pages.stack().pageSize(), m_list.ThumbNailSize(), extra, state.grid);
    state.PageColumns = state.grid.columns;
    state.ThumbsPerPage = state.grid.tilesPerPage();
}

// One page of empty tiles.
std::optional<int> TileMaker::beginDesign()
{
    GalleryState& state = m_list.surface().state;
    state.ThumbTable.resize(state.ThumbsPerPage);
    return state.ThumbsPerPage;
}

std::optional<int> TileMaker::acceptFolder()
{
    GalleryState& state = m_list.surface().state;
    const int files = m_list.surface().File1.count();
    const int pages = fullPages(files, state.ThumbsPerPage);
    if (pages > m_list.MaxThumbnailpages()) {
        refuse(pages);
        return std::nullopt;
    }
    state.ThumbTable.resize(files);
    emit m_list.ThumbPageStatus(m_list.ThumbNailSize(), state.ThumbsPerPage, pages, files);
    return files;
}

void TileMaker::refuse(int pages)
{
    RunSurface& surface = m_list.surface();
    TooManyPages facts;
    facts.pages = pages;
    facts.limit = m_list.MaxThumbnailpages();
    facts.tilesPerPage = surface.state.ThumbsPerPage;
    facts.pictureSize = m_list.ThumbNailSize();
    facts.page = surface.pages.stack().pageSize();
    facts.passingSize =
        largestPassingSize(facts.page, surface.File1.count(), facts.pictureSize, facts.limit);
    const int runs = surface.state.runs;
    if (const auto report = tooManyPagesReport(m_list.Language(), facts)) {
        platform::dialogs().showMessage(report->text, report->title,
                                        platform::BoxIcon::Exclamation);
    }
    // Under the box another folder may have been shown, which isn't to be emptied.
    if (m_alive == nullptr || surface.state.runs != runs) {
        return;
    }
    surface.state.endRun();
    if (core::ProgressStrip* shown = strip()) {
        shown->showStrip(false);
    }
    m_list.ResetLoading();
}

// A folder that was refused meanwhile has left no table to fill.
bool TileMaker::takes(const FileInRun& file) const
{
    return m_list.surface().state.ThumbTable.hasRow(file.index);
}

bool TileMaker::needsPicture(const FileInRun& file) const
{
    return !m_list.isDesignTime() && !hasTile(file);
}

std::optional<QSize> TileMaker::tileRoom() const
{
    const TileGrid& grid = m_list.surface().state.grid;
    const QSizeF room(grid.cellWidth - kTileBorder, grid.cellHeight - kTileBorder);
    return (room * m_list.surface().pages.ratio()).toSize();
}

// Written before the page is turned: the first tile of a page still tells the one before.
std::optional<QString> TileMaker::barText(const FileInRun& file) const
{
    if (m_list.isDesignTime()) {
        return std::nullopt;
    }
    return runningText(m_list.Language(),
                       {m_pageIndex, file.index, file.count, m_list.ThumbNailSize()});
}

void TileMaker::make(const FileInRun& file)
{
    turnTo(place(file).page);
    if (!hasTile(file)) {
        drawTile(file);
    }
}

void TileMaker::end()
{
    m_list.surface().showTop();
}

std::optional<QString> TileMaker::closingText(int index, int count) const
{
    return thumbs::closingText(m_list.Language(),
                               {m_pageIndex, index, count, m_list.ThumbNailSize()});
}

TilePlace TileMaker::place(const FileInRun& file) const
{
    return tilePlace(m_list.surface().state.grid, file.index);
}

bool TileMaker::hasTile(const FileInRun& file) const
{
    const TileRow* row = m_list.tile(file.index);
    const TilePlace wanted = place(file);
    return row != nullptr && row->path == file.path && row->page == wanted.page &&
           row->box == tileBox(m_list.grid(), wanted.column, wanted.row);
}

void TileMaker::turnTo(int page)
{
    m_pageIndex = page;
    while (m_list.surface().pages.pages() <= page) {
        m_list.surface().addPage();
    }
}

void TileMaker::drawTile(const FileInRun& file)
{
    RunSurface& surface = m_list.surface();
    const TileGrid& grid = surface.state.grid;
    const QSize room(grid.cellWidth - kTileBorder, grid.cellHeight - kTileBorder);
    const QSize fit = fitPicture(surface.P_load.naturalSize, room);
    if (!m_list.isDesignTime() && (fit.height() <= 0 || fit.width() == 0)) {
        return;
    }
    const TilePlace where = place(file);
    const TileBox box = tileBox(grid, where.column, where.row);
    surface.pages.fillBox(where.page, box.grown(1), m_list.ThumbNailBorderColor());
    surface.pages.fillBox(where.page, box, m_list.ThumbNailColor());
    if (!m_list.isDesignTime()) {
        drawPicture(file, box, fit);
    }
    surface.showTile(where.page, box.grown(1));
    surface.P_load.thinOut();
}

void TileMaker::drawPicture(const FileInRun& file, const TileBox& box, QSize fit)
{
    RunSurface& surface = m_list.surface();
    const int page = place(file).page;
    const QSize cell(surface.state.grid.cellWidth, surface.state.grid.cellHeight);
    const QPointF corner(box.left, box.top);
    surface.pages.paintPicture(page, surface.P_load.picture, corner + pictureOffset(cell, fit),
                               fit);
    const QSize badge(surface.fNX.width(), surface.fNX.height());
    surface.pages.paintPicture(page, surface.fNX, corner, badge);
    surface.state.ThumbTable.fill(file.index, box, file.path, page);
}

} // namespace thumbs
