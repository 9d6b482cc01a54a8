#include "core/file_field.h"
#include "core/main_menus.h"
#include "core/picture_display.h"
#include "core/picture_required.h"
#include "core/services.h"
#include "core/viewer.h"
#include "core/window_registry.h"
#include "files/deletion.h"
#include "files/transfer.h"
#include "platform/desktop/desktop.h"
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
    const core::FileField* field = core::services().field;
    return field == nullptr ? QString() : field->Xiala();
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
    core::PictureDisplay* display = core::services().display;
    const bool canRun =
        !action.needsPicture || (display != nullptr && core::requirePicture(display->viewer()));
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
    if (core::MainMenus* menus = core::services().menus) {
        const int bottom = m_tbmiddle->y() + m_tbmiddle->height();
        const QPoint place(base::pixelsFromTwips(kToolsMenuLeft),
                           bottom - base::pixelsFromTwips(kToolsMenuRise));
        menus->popUpFolderTools(mapToGlobal(place));
    }
}

void frmThumbnaillist::showProperties()
{
    platform::setPointer(platform::Pointer::Default);
    platform::desktop().showProperties(currentPath(), window());
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
    if (core::PictureDisplay* display = core::services().display) {
        files::openTransferWindow(display->viewer(), currentPath(), "Copy File to...",
                                  files::TransferKind::Copy);
    }
}

void frmThumbnaillist::moveFile()
{
    if (core::PictureDisplay* display = core::services().display) {
        files::openTransferWindow(display->viewer(), currentPath(), "Move file to...",
                                  files::TransferKind::Move);
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
