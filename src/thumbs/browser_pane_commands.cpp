#include "core/services.h"
#include "core/state.h"
#include "core/window_registry.h"
#include "files/classification.h"
#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/paths.h"
#include "platform/picture_saver.h"
#include "platform/pointer.h"
#include "thumbs/browser_pane.h"
#include "thumbs/thumbnail_list.h"

namespace {

using Pane = frmThumbnaillist;

constexpr int kToolsMenuLeft = 55; // twips
constexpr int kToolsMenuRise = 5;  // twips

bool hasPicture()
{
    core::MainWindow* window = core::services().mainWindow;
    return window != nullptr && window->viewer().PictureExists();
}

QString currentPath()
{
    core::MainWindow* window = core::services().mainWindow;
    return window == nullptr ? QString() : window->Xiala();
}

// What Movefile previews: a foreign format goes by way of the working file.
QString previewFile(const QString& path)
{
    if (!files::isOwnFormat(path)) {
        return path;
    }
    const QString workingFile = platform::appFile("temp.bmp");
    // Where it can't be written, the file of the last picture is shown instead.
    static_cast<void>(
        platform::savePicture(core::services().mainWindow->viewer().Picture(), workingFile));
    return workingFile;
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
    if (action.needsPicture && !hasPicture()) {
        platform::dialogs().showMessage(core::kNoPictureText, core::kProgramName,
                                        platform::BoxIcon::Information);
        return;
    }
    (this->*action.run)();
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
    core::windows().show("Form5rf", core::ShowMode::Modal);
}

void frmThumbnaillist::deleteFile()
{
    const QString path = currentPath();
    const QString question = tr("Move \"%1\" to the trash?").arg(path);
    if (!platform::dialogs().askYesNo(question, tr("Delete"))) {
        return;
    }
    if (!platform::desktop().moveToTrash(path)) {
        platform::dialogs().showMessage(tr("\"%1\" could not be moved to the trash.").arg(path),
                                        tr("Delete"), platform::BoxIcon::Exclamation);
    }
}

void frmThumbnaillist::copyFile()
{
    transfer("Copy File to...", "Images/Copyfile.jpg", Transfer::Copy);
}

void frmThumbnaillist::moveFile()
{
    transfer("Move file to...", "Images/Movefile.jpg", Transfer::Move);
}

void frmThumbnaillist::transfer(const char* caption, const char* picture, Transfer kind)
{
    core::state().MoveNotCopy = kind == Transfer::Move;
    QWidget* window = core::windows().load("Movefile");
    if (window == nullptr) {
        return;
    }
    window->setProperty("captionText", QString::fromLatin1(caption));
    window->setProperty("pictureFile", platform::appFile(picture));
    window->setProperty("previewFile", previewFile(currentPath()));
    core::windows().show("Movefile", core::ShowMode::Modal);
}

void frmThumbnaillist::openFavourites()
{
    core::windows().show("Favorties", core::ShowMode::Modal);
}

void frmThumbnaillist::refresh()
{
    platform::setPointer(platform::Pointer::ArrowHourGlass);
    rebuildThumbnails(); // the pane may be gone afterwards
    platform::setPointer(platform::Pointer::Default);
}
