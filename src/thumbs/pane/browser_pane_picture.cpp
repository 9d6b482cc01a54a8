#include "core/services.h"
#include "core/state.h"
#include "files/classification.h"
#include "platform/desktop/pointer.h"
#include "platform/pictures/picture_loader.h"
#include "thumbs/pane/browser_pane.h"
#include "thumbs/pane/tile_keys.h"
#include "thumbs/thumbnail_list.h"

#include <QKeyEvent>
#include <QPointer>
#include <algorithm>

bool frmThumbnaillist::handleTileKey(const QKeyEvent& event)
{
    const QPointer<frmThumbnaillist> alive = this;
    m_tileKey = true;
    const bool handled = actOnTileKey(event);
    if (alive != nullptr) {
        m_tileKey = false;
    }
    return handled;
}

// Keys on the thumbnails are presses and double clicks on tiles. After a double click nothing is
// selected any more, so Return presses the tile first, as the pointer would.
bool frmThumbnaillist::actOnTileKey(const QKeyEvent& event)
{
    const int key = event.key();
    const int selected = m_list->selectedTile();
    const bool opens = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (opens || key == Qt::Key_Space) {
        const QPointer<ThumbNailList> alive = m_list;
        const std::span<const int> tiles = m_list->tiles();
        if (!tiles.empty() && (!opens || m_list->selection().path.isEmpty())) {
            m_list->pressTile(std::max(selected, tiles.front()));
        }
        if (opens && alive != nullptr) {
            m_list->doubleClickTile();
        }
        return true;
    }
    const thumbs::TileGrid& grid = m_list->grid();
    const auto tile =
        thumbs::tileAfterKey(key, selected, {m_list->tiles(), grid.columns, grid.tilesPerPage()});
    if (tile) {
        m_list->pressTile(*tile);
    }
    return tile.has_value();
}

// A tile was clicked: its picture goes to the viewer, and the list steps on from there. A file that
// can't be loaded leaves what the viewer holds; all the rest follows the file just the same.
void frmThumbnaillist::showTilesFile(int index, const QString& path)
{
    core::MainWindow* window = core::services().mainWindow;
    m_tileChosen = true;
    if (window == nullptr) {
        return;
    }
    const QPointer<frmThumbnaillist> alive = this;
    const platform::PointerGuard hourGlass;
    window->Image1().setPicture({});
    core::state().CurrentFile = path;
    core::state().PictureChanged = false;
    if (const auto picture = platform::loadPicture(path)) {
        window->viewer().setPicture(*picture);
        window->Image1().setPicture(*picture);
    }
    if (files::isOwnFormat(path)) {
        window->openPsd(path); // may show a box
        if (alive == nullptr || core::services().mainWindow == nullptr) {
            return;
        }
        window->showNameAndSize(path);
    } else {
        window->showFileFacts(path);
    }
    window->setXiala(path);
    window->addRecentPath(path);
    window->setXiala(path); // the list was filled anew
    window->setMenuState(true);
    m_files.setListIndex(index);
    window->viewer().Refresh();
    giveViewerFocus();
}

void frmThumbnaillist::openTilesFile(int /*index*/, const QString& path)
{
    m_tileChosen = true;
    if (core::MainWindow* window = core::services().mainWindow) {
        window->routePath(path);
        window->setXiala(path);
        giveViewerFocus();
    }
}

// After the pointer the keys act on the picture; whoever walks through the tiles by keys goes on
// there.
void frmThumbnaillist::giveViewerFocus()
{
    core::MainWindow* window = core::services().mainWindow;
    if (window != nullptr && !m_tileKey) {
        window->viewer().giveFocus();
    }
}
