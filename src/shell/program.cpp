#include "shell/program.h"

#include "acquire/wallpaper.h"
#include "acquire/windows.h"
#include "core/constants.h"
#include "core/services.h"
#include "core/state.h"
#include "core/window_registry.h"
#include "core/work_area.h"
#include "core/working_files.h"
#include "editing/frames/windows.h"
#include "editing/windows.h"
#include "files/explorer/folder_tree.h"
#include "files/favourite_window.h"
#include "files/favourites_editor_window.h"
#include "files/rename_window.h"
#include "files/transfer_window.h"
#include "formats/hooks.h"
#include "platform/desktop/dialogs.h"
#include "platform/desktop/pump.h"
#include "platform/os/end_requests.h"
#include "platform/os/paths.h"
#include "platform/os/single_instance.h"
#include "platform/pictures/delivered_icon.h"
#include "publishing/albums/album_run.h"
#include "publishing/albums/windows.h"
#include "publishing/mail/windows.h"
#include "publishing/printing/contact_sheets.h"
#include "publishing/printing/windows.h"
#include "shell/config_store.h"
#include "shell/main_window.h"
#include "shell/message_window.h"
#include "shell/picture_window.h"
#include "shell/preferences/windows.h"
#include "shell/screenshot_request.h"
#include "shell/start_folder.h"
#include "thumbs/pane/browser_pane.h"
#include "thumbs/thumbnail_list.h"
#include "viewer/zoom_tool_window.h"

#include <QApplication>
#include <QIcon>
#include <QPixmap>

namespace shell {

namespace {

Form1* mainWindow()
{
    return qobject_cast<Form1*>(core::windows().find(core::Window::Form1));
}

frmThumbnaillist* pane()
{
    return qobject_cast<frmThumbnaillist*>(core::windows().find(core::Window::frmThumbnaillist));
}

QWidget* parentWindow()
{
    core::WorkArea* area = core::services().workArea;
    return area != nullptr ? area->window() : nullptr;
}

frmThumbnaillist* makePane()
{
    auto* const made = new frmThumbnaillist(parentWindow()); // the registry owns it
    made->load();
    made->ThumbNailList1().setPrintLayout(&printing::makeContactSheets);
    return made;
}

// The icon goes to the desktop as raw pixels, so it is no larger than a task bar shows it.
void showProgramIcon()
{
    constexpr int kIconSize = 64;
    const QImage icon =
        platform::deliveredPng(platform::appFile(QStringLiteral("Images/vistara.png")));
    QApplication::setWindowIcon(QPixmap::fromImage(
        icon.scaled(kIconSize, kIconSize, Qt::KeepAspectRatio, Qt::SmoothTransformation)));
}

void tell(const StepWatcher& watcher, const char* step)
{
    if (watcher) {
        watcher(QString::fromLatin1(step));
    }
}

void letEventsRun()
{
    static_cast<void>(platform::pump());
}

// What the readers of the own formats tell goes to a box and to the strip of the main window.
void connectReaders()
{
    formats::Hooks hooks;
    hooks.report = [](const char* text) {
        platform::dialogs().showMessage(QString::fromLatin1(text), core::kProgramName,
                                        platform::BoxIcon::None);
    };
    hooks.progress = [](double fraction) {
        if (Form1* form = mainWindow()) {
            form->showReadingProgress(fraction);
        }
    };
    formats::setHooks(std::move(hooks));
}

// A hidden pane can't be active, so the main window has no side to come back from and takes notice
// of the folder at once.
void showSelectedFolder(const QString& folder)
{
    if (frmThumbnaillist* open = pane()) {
        open->treeSelected(folder);
    }
    if (const frmThumbnaillist* open = pane(); open != nullptr && !open->isVisible()) {
        mainWindow()->becameActive();
    }
}

// The end may come at any of these steps; what is left of them does nothing then.
void showWindows(Form1& form, const StepWatcher& watcher)
{
    form.load();
    tell(watcher, "main window loaded");
    core::windows().show(core::Window::Form1);
    core::windows().show(core::Window::frmThumbnaillist);
    tell(watcher, "pane shown");
    if (Form1* alive = mainWindow()) {
        alive->watchPane(pane(), [] {
            if (frmThumbnaillist* open = pane()) {
                open->activated();
            }
        });
        alive->SetLoad();
        tell(watcher, "modes restored");
    }
}

// Files that were opened by name are shown from a folder that isn't chosen in the tree.
bool isFolderShown(const QString& folder)
{
    frmThumbnaillist* open = pane();
    return open == nullptr || open->File1().path() == folder;
}

void openFolderTree(const StepWatcher& watcher)
{
    frmThumbnaillist* browser = pane();
    if (browser == nullptr || platform::isClosing()) {
        return;
    }
    const QString folder = startFolder();
    browser->setStartFolder(folder);
    tell(watcher, "folder tree opened");
    files::folderTree().open(browser->treeHost(), folder, &showSelectedFolder, &isFolderShown);
}

} // namespace

void registerWindows()
{
    core::WindowRegistry& windows = core::windows();
    windows.add(core::Window::frmWelcome, [] { return makeWelcomeWindow(); });
    windows.add(core::Window::Form1, [] { return new Form1; });
    windows.add(core::Window::frmThumbnaillist, [] { return makePane(); });
    windows.add(core::Window::frmAbout, [] { return makeAboutWindow(parentWindow()); });
    windows.add(core::Window::frmMsg, [] { return new frmMsg; });
    windows.add(core::Window::fastZoom, [] { return new fastZoom; });
    windows.add(core::Window::Favorties, [] { return new Favorties; });
    windows.add(core::Window::FavortiesModi, [] { return new FavortiesModi; });
    windows.add(core::Window::Form5rf, [] { return new Form5rf; });
    windows.add(core::Window::Movefile, [] { return new Movefile; });
    editing::registerWindows();
    frames::registerWindows();
    acquire::registerWindows();
    mail::registerWindows();
    albums::registerWindows();
    printing::registerWindows();
    preferences::registerWindows();
}

void endProgram()
{
    if (Form1* form = mainWindow()) {
        form->exitProgram();
    } else {
        platform::beginClosing();
    }
}

void runProgram(const StepWatcher& watcher)
{
    static FileConfigStore config;
    core::services().config = &config;
    core::services().createAlbum = &albums::createAlbum;
    core::services().setWallpaper = &acquire::setWallpaper;
    core::services().endProgram = &endProgram;
    registerWindows();
    connectReaders();

    if (QWidget* welcome = core::windows().show(core::Window::frmWelcome)) {
        welcome->repaint();
    }
    tell(watcher, "welcome shown");
    letEventsRun();
    if (auto* form = qobject_cast<Form1*>(core::windows().load(core::Window::Form1))) {
        showWindows(*form, watcher);
        openFolderTree(watcher);
    } else {
        core::windows().unload(core::Window::frmWelcome);
    }
    letEventsRun();
    core::windows().deleteForgotten();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    formats::setHooks({});
    core::services() = {};
}

int enterProgram(int argc, char** argv)
{
    platform::EndRequests endRequests;
    platform::locateAppPath();
    platform::SingleInstance instance;
    if (!instance.acquire()) {
        return 0;
    }
    platform::prepareAppPath();
    core::removeWorkingFiles();
    QApplication application(argc, argv);
    QApplication::setApplicationName(core::kProgramName);
    QApplication::setQuitOnLastWindowClosed(false);
    showProgramIcon();
    endRequests.deliverTo(&endProgram);
    const ScreenshotRequest screenshot;
    runProgram();
    return 0;
}

} // namespace shell
