#include "core/picture_required.h"
#include "core/services.h"
#include "core/window_registry.h"
#include "files/deletion.h"
#include "files/transfer.h"
#include "platform/desktop/pointer.h"
#include "platform/os/paths.h"
#include "thumbs/miniature.h"
#include "thumbs/pane/browser_pane.h"
#include "thumbs/thumbnail_list.h"

namespace {

using Pane = frmThumbnaillist;

constexpr int kToolsMenuLeft = 55; // twips
constexpr int kToolsMenuRise = 5;  // twips

QString currentPath()
{
    core::MainWindow* window = core::services().mainWindow;
    return window == nullptr ? QString() : window->Xiala();
}

} // namespace

void frmThumbnaillist::pressButton(int index)
{
    struct Action {
        void (Pane::*run)();
        bool needsPicture;
    };
    static constexpr std::array<Action, kButtons> kActions{{
        {&Pane::goToParent, false},
        {&Pane::popUpTools, false},
        {&Pane::showProperties, true},
        {&Pane::rename, true},
        {&Pane::deleteFile, true},
        {&Pane::copyFile, true},
        {&Pane::moveFile, true},
        {&Pane::openFavourites, true},
        {&Pane::refresh, false},
    }};
    const Action& action = kActions.at(static_cast<std::size_t>(index));
    core::MainWindow* window = core::services().mainWindow;
    const bool canRun =
        !action.needsPicture || (window != nullptr && core::requirePicture(window->viewer()));
    if (canRun) {
        (this->*action.run)();
    }
}

void frmThumbnaillist::goToParent()
{
    const QString parent = platform::folderOf(m_files.path());
    if (!parent.isEmpty() && parent != m_files.path()) {
        applyPath(parent);
    }
}

void frmThumbnaillist::popUpTools()
{
    if (core::MainWindow* window = core::services().mainWindow) {
        const int bottom = m_tbmiddle->y() + m_tbmiddle->height();
        const QPoint place(base::pixelsFromTwips(kToolsMenuLeft),
                           bottom - base::pixelsFromTwips(kToolsMenuRise));
        window->popUpFolderTools(mapToGlobal(place));
    }
}

void frmThumbnaillist::showProperties()
{
    core::services().mainWindow->Propers(currentPath());
}

void frmThumbnaillist::rename()
{
    const platform::PointerGuard hourGlass;
    core::windows().show(core::Window::Form5rf, core::ShowMode::Modal);
}

void frmThumbnaillist::deleteFile()
{
    const QString path = currentPath();
    files::deleteWithQuestion(path, thumbs::miniature(path, devicePixelRatioF()));
}

void frmThumbnaillist::copyFile()
{
    if (core::MainWindow* window = core::services().mainWindow) {
        files::openTransferWindow(*window, "Copy File to...", files::TransferKind::Copy);
    }
}

void frmThumbnaillist::moveFile()
{
    if (core::MainWindow* window = core::services().mainWindow) {
        files::openTransferWindow(*window, "Move file to...", files::TransferKind::Move);
    }
}

void frmThumbnaillist::openFavourites()
{
    core::windows().show(core::Window::Favorties, core::ShowMode::Modal);
}

void frmThumbnaillist::refresh()
{
    platform::setPointer(platform::Pointer::ArrowHourGlass);
    rebuildThumbnails(); // the pane may be gone afterwards
    platform::setPointer(platform::Pointer::Default);
}
