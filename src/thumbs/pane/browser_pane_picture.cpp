#include "core/file_field.h"
#include "core/main_menus.h"
#include "core/picture_display.h"
#include "core/services.h"
#include "core/state.h"
#include "core/viewer.h"
#include "files/classification.h"
#include "files/routing.h"
#include "platform/desktop/pointer.h"
#include "platform/os/paths.h"
#include "platform/pictures/picture_box.h"
#include "platform/pictures/picture_loader.h"
#include "thumbs/pane/browser_pane.h"
#include "thumbs/thumbnail_list.h"
#include "viewer/own_format_show.h"

#include <QKeyEvent>
#include <QPointer>
#include <algorithm>

namespace {

void loadTilesPicture(core::PictureDisplay& display, const QString& path)
{
    display.Image1().setPicture({});
    if (const auto picture = platform::loadPicture(path)) {
        display.viewer().setPicture(*picture);
        display.Image1().setPicture(*picture);
    }
    if (files::isOwnFormat(path)) {
        viewer::showOwnFormat(display, path);
    }
}

// The decoder of the own formats has told the size of the picture.
void tellFacts(core::PictureDisplay& display, const QString& path)
{
    if (files::isOwnFormat(path)) {
        files::showNameAndSize(display.StateBar(), path);
    } else {
        files::showFileFacts(display, path);
    }
}

void rememberFile(const QString& path)
{
    core::FileField& field = *core::services().field;
    field.setXiala(path);
    field.addRecentPath(path);
    field.setXiala(path); // the list was filled anew
    core::services().menus->setMenuState(true);
}

} // namespace

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
    return m_list->pressTileByKey(key);
}

// A tile was clicked: its picture goes to the viewer, and the list steps on from there. A file that
// can't be loaded leaves what the viewer holds; all the rest follows the file just the same.
void frmThumbnaillist::showTilesFile(int index, const QString& path)
{
    m_tileChosen = true;
    core::PictureDisplay* display = core::services().display;
    if (display == nullptr) {
        return;
    }
    const QPointer<frmThumbnaillist> alive = this;
    const platform::PointerGuard hourGlass;
    core::state().CurrentFile = path;
    core::state().PictureChanged = false;
    loadTilesPicture(*display, path); // may show a box
    if (alive == nullptr || core::services().display == nullptr) {
        return;
    }
    tellFacts(*display, path);
    rememberFile(path);
    m_files.setListIndex(index);
    // A list that was read anew since the tiles were made may have the file elsewhere.
    m_files.select(platform::fileNameOf(path));
    display->viewer().Refresh();
    giveViewerFocus();
}

void frmThumbnaillist::openTilesFile(int /*index*/, const QString& path)
{
    m_tileChosen = true;
    if (core::PictureDisplay* display = core::services().display) {
        core::FileField& field = *core::services().field;
        files::routePath(*display, field, path);
        field.setXiala(path);
        giveViewerFocus();
    }
}

// After the pointer the keys act on the picture; whoever walks through the tiles by keys goes on
// there.
void frmThumbnaillist::giveViewerFocus()
{
    core::PictureDisplay* display = core::services().display;
    if (display != nullptr && !m_tileKey) {
        display->viewer().giveFocus();
    }
}
