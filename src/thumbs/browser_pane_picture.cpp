#include "core/services.h"
#include "core/state.h"
#include "files/classification.h"
#include "platform/picture_loader.h"
#include "platform/pointer.h"
#include "thumbs/browser_pane.h"

// A tile was clicked: its picture goes to the viewer, and the list steps on from there. A file that
// can't be loaded leaves what the viewer holds; all the rest follows the file just the same.
void frmThumbnaillist::showTilesFile(int index, const QString& path)
{
    core::MainWindow* window = core::services().mainWindow;
    if (window == nullptr) {
        return;
    }
    const platform::PointerGuard hourGlass;
    window->Image1().setPicture({});
    core::state().CurrentFile = path;
    core::state().PictureChanged = false;
    if (const auto picture = platform::loadPicture(path)) {
        window->viewer().setPicture(*picture);
        window->Image1().setPicture(*picture);
    }
    if (files::isOwnFormat(path)) {
        window->openPsd(path);
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
}

void frmThumbnaillist::openTilesFile(int /*index*/, const QString& path)
{
    if (core::MainWindow* window = core::services().mainWindow) {
        window->routePath(path);
        window->setXiala(path);
    }
}
