#include "thumbs/gallery_run.h"

#include "core/services.h"
#include "core/state.h"
#include "files/classification.h"
#include "platform/desktop/dialogs.h"
#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"
#include "platform/os/paths.h"
#include "platform/pictures/picture_loader.h"
#include "thumbs/bar_texts.h"
#include "thumbs/page_limit.h"
#include "thumbs/picture_fit.h"
#include "thumbs/thumbnail_list.h"

namespace thumbs {

namespace {

constexpr base::Colour kProgressColour = base::systemColour(8);
constexpr base::Colour kProgressBackground = 0xE0E0E0;

// The strip of the main window; null where there is no main window.
core::ProgressStrip* mainStrip()
{
    core::MainWindow* window = core::services().mainWindow;
    return window == nullptr ? nullptr : &window->Gradient();
}

void showMainStrip(bool visible)
{
    if (core::ProgressStrip* strip = mainStrip()) {
        strip->showStrip(visible);
    }
}

void enableSplitter(bool enabled)
{
    if (core::BrowserPane* pane = core::services().browserPane) {
        pane->setSplitterEnabled(enabled);
    }
}

} // namespace

GalleryRun::GalleryRun(ThumbNailList& list)
    : m_list(list)
    , m_alive(&list)
{
}

void GalleryRun::run()
{
    begin();
    if (!acceptFolder()) {
        return;
    }
    showMainStrip(true);
    walk();
    if (m_alive != nullptr) {
        finish();
    }
}

void GalleryRun::begin()
{
    m_list.ResetLoading();
    GalleryState& state = m_list.surface().state;
    ++state.runs;
    state.IsPrintPreview = false;
    state.IsHtmlRun = false;
    holdHost();
    m_list.surface().layoutFirstPage();
    const QSize extra(m_list.ThumbnailExtraWidth(), m_list.ThumbnailExtraHeight());
    state.grid = makeTileGrid(m_list.surface().pages.stack().pageSize(), m_list.ThumbNailSize(),
                              extra, state.grid);
    state.PageColumns = state.grid.columns;
    state.ThumbsPerPage = state.grid.tilesPerPage();
}

void GalleryRun::holdHost()
{
    enableSplitter(false);
    platform::setPointer(platform::Pointer::ArrowHourGlass);
    m_list.surface().state.IsLoading = true;
}

// False ends the run; the pointer and the splitter then stay as holdHost() set them.
bool GalleryRun::acceptFolder()
{
    GalleryState& state = m_list.surface().state;
    if (m_list.isDesignTime()) {
        m_fileCount = state.ThumbsPerPage;
        state.ThumbTable.resize(m_fileCount);
        return true;
    }
    m_fileCount = m_list.surface().File1.count();
    const int pages = fullPages(m_fileCount, state.ThumbsPerPage);
    if (pages > m_list.MaxThumbnailpages()) {
        refuse(pages);
        return false;
    }
    state.ThumbTable.resize(m_fileCount);
    emit m_list.ThumbPageStatus(m_list.ThumbNailSize(), state.ThumbsPerPage, pages, m_fileCount);
    return m_alive != nullptr;
}

void GalleryRun::refuse(int pages)
{
    GalleryState& state = m_list.surface().state;
    TooManyPages facts;
    facts.pages = pages;
    facts.limit = m_list.MaxThumbnailpages();
    facts.tilesPerPage = state.ThumbsPerPage;
    facts.pictureSize = m_list.ThumbNailSize();
    facts.page = m_list.surface().pages.stack().pageSize();
    facts.passingSize = largestPassingSize(facts.page, m_fileCount, facts.pictureSize, facts.limit);
    const int runs = state.runs;
    if (const auto report = tooManyPagesReport(m_list.Language(), facts)) {
        platform::dialogs().showMessage(report->text, report->title,
                                        platform::BoxIcon::Exclamation);
    }
    // Under the box another folder may have been shown, which isn't to be emptied.
    if (m_alive == nullptr || state.runs != runs) {
        return;
    }
    state.IsLoading = false;
    state.CancelLoading = false;
    state.IsPrinting = false;
    showMainStrip(false);
    m_list.ResetLoading();
}

void GalleryRun::walk()
{
    while (m_fileIndex < m_fileCount) {
        if (!platform::pump(m_alive) || m_list.surface().state.CancelLoading) {
            return;
        }
        // A run that has ended meanwhile has put these back.
        holdHost();
        showMainStrip(true);
        if (!makeTile()) {
            return;
        }
        showProgress();
        ++m_fileIndex;
    }
}

// False ends the run: no further file, or the list is gone. A folder that was refused meanwhile has
// left no table to fill.
bool GalleryRun::makeTile()
{
    GalleryState& state = m_list.surface().state;
    if (!state.ThumbTable.hasRow(m_fileIndex)) {
        return false;
    }
    const TilePlace place = tilePlace(state.grid, m_fileIndex);
    if (m_list.isDesignTime()) {
        turnTo(place.page);
        drawTile({}, place);
        return true;
    }
    const QString name = m_list.surface().File1.name(m_fileIndex);
    if (name.isEmpty()) {
        return false;
    }
    const QString path = platform::withSeparator(m_list.surface().File1.path()) + name;
    const bool isThere = hasTile(path, place);
    if (!isThere) {
        const int runs = state.runs;
        loadPicture(path);
        // A reader's box lets events run. Another run has then loaded pictures of its own, and has
        // made the tile of this place.
        if (m_alive == nullptr || state.runs != runs) {
            return m_alive != nullptr;
        }
    }
    writeBar();
    turnTo(place.page);
    if (!isThere) {
        drawTile(path, place);
    }
    return true;
}

bool GalleryRun::hasTile(const QString& path, const TilePlace& place) const
{
    const GalleryState& state = m_list.surface().state;
    const TileRow* row = state.ThumbTable.filledRow(m_fileIndex);
    return row != nullptr && row->path == path && row->page == place.page &&
           row->box == tileBox(state.grid, place.column, place.row);
}

// What can't be loaded leaves the badge or the picture of the file before.
void GalleryRun::loadPicture(const QString& path)
{
    const TileKind& kind = tileKindFor(files::extensionOf(platform::fileNameOf(path)));
    if (const auto& badge = m_icons.icon(badgeFile(kind, core::state().FrameWindowOpen))) {
        m_list.surface().fNX = *badge;
    }
    switch (kind.source) {
    case TileSource::Icon:
        if (const auto& icon = m_icons.icon(iconFile(kind))) {
            m_list.surface().P_load = {*icon, QSize(icon->width(), icon->height())};
        }
        break;
    case TileSource::OwnDecoder:
        m_list.openPsd(path);
        break;
    case TileSource::File: {
        const TileGrid& grid = m_list.surface().state.grid;
        const double ratio = m_list.surface().pages.ratio();
        const QSizeF box(grid.cellWidth - kTileBorder, grid.cellHeight - kTileBorder);
        if (const auto loaded =
                platform::loadTilePicture(path, (box * ratio).toSize(), &fitPicture)) {
            m_list.surface().P_load = {loaded->picture, loaded->naturalSize};
        }
        break;
    }
    }
}

void GalleryRun::writeBar()
{
    const BarFacts facts{m_pageIndex, m_fileIndex, m_fileCount, m_list.ThumbNailSize()};
    if (const auto text = runningText(m_list.Language(), facts)) {
        m_list.surface().setInfoText(*text);
    }
}

void GalleryRun::turnTo(int page)
{
    m_pageIndex = page;
    while (m_list.surface().pages.pages() <= page) {
        m_list.surface().addPage();
    }
}

void GalleryRun::drawTile(const QString& path, const TilePlace& place)
{
    const TileGrid& grid = m_list.surface().state.grid;
    const QSize cell(grid.cellWidth, grid.cellHeight);
    LoadedPicture& loaded = m_list.surface().P_load;
    const QSize fit = fitPicture(loaded.naturalSize, cell - QSize(kTileBorder, kTileBorder));
    const bool drawn = m_list.isDesignTime() || (fit.height() > 0 && fit.width() != 0);
    if (!drawn) {
        return;
    }
    const TileBox box = tileBox(grid, place.column, place.row);
    PageSheet& pages = m_list.surface().pages;
    pages.fillBox(place.page, box.grown(1), m_list.ThumbNailBorderColor());
    pages.fillBox(place.page, box, m_list.ThumbNailColor());
    if (!m_list.isDesignTime()) {
        const QPointF corner(box.left, box.top);
        pages.paintPicture(place.page, loaded.picture, corner + pictureOffset(cell, fit), fit);
        const platform::Picture& badge = m_list.surface().fNX;
        pages.paintPicture(place.page, badge, corner, QSize(badge.width(), badge.height()));
        m_list.surface().state.ThumbTable.fill(m_fileIndex, box, path, place.page);
    }
    m_list.surface().showTile(place.page, box.grown(1));
    loaded.thinOut();
}

void GalleryRun::showProgress()
{
    if (core::ProgressStrip* strip = mainStrip()) {
        ThumbNailList::Make_Gradient(*strip, m_fileIndex, m_fileCount - 1, kProgressColour,
                                     kProgressBackground);
    }
}

void GalleryRun::finish()
{
    m_list.surface().showTop();
    enableSplitter(true);
    platform::setPointer(platform::Pointer::Default);
    const BarFacts facts{m_pageIndex, m_fileIndex, m_fileCount, m_list.ThumbNailSize()};
    if (const auto text = closingText(m_list.Language(), facts)) {
        m_list.surface().setInfoText(*text);
    }
    GalleryState& state = m_list.surface().state;
    state.IsLoading = false;
    state.CancelLoading = false;
    state.IsPrinting = false;
    showMainStrip(false);
}

} // namespace thumbs
