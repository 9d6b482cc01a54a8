// The main window's life: load, the modes restored at start, becoming active, and the unload.

#include "base/numbers.h"
#include "core/constants.h"
#include "core/player_window.h"
#include "core/services.h"
#include "core/settings.h"
#include "core/state.h"
#include "core/window_registry.h"
#include "core/working_files.h"
#include "files/display_pipeline.h"
#include "files/explorer/folder_tree.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/dialogs.h"
#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"
#include "platform/os/files.h"
#include "platform/os/paths.h"
#include "platform/os/registry.h"
#include "shell/main_window.h"
#include "shell/menus.h"
#include "shell/side_activation.h"
#include "viewer/picture_viewer.h"
#include "widgets/avi.h"

#include <QAction>
#include <QCloseEvent>
#include <QWheelEvent>
#include <array>

namespace {

constexpr int kGoodDepth = 32; // bits a pixel
constexpr int kBorderOfViewer = 0;
constexpr int kWheelStep = 120; // eighths of a degree
constexpr int kFlashWheelCode = 0x76;

constexpr shell::Extent kFirstViewerPlace{263, 63, 6000, 4500}; // twips; the first resize moves it

const QString kMarkerKey = QStringLiteral("Software\\Corvane\\Qlink");
const QString kMarkerName = QStringLiteral("Brelmark");

// What the Exit command takes down before the unload proper.
constexpr std::array kPlayerWindows{core::Window::MpegForm, core::Window::FlashP,
                                    core::Window::FlashQ, core::Window::FrmBrowser};

void stopPlayer()
{
    if (core::services().stopPlayer) {
        core::services().stopPlayer();
    }
}

// Events may bring the end of the program; the load goes on all the same and the end comes after
// it.
void letEventsRun()
{
    static_cast<void>(platform::pump());
}

} // namespace

void Form1::load()
{
    MaximizedToggle = true;
    core::state().FirstActivate = true;
    core::state().BrowserShown = true;
    m_dir2 = platform::appPath();
    letEventsRun();
    m_viewer->setBorderStyle(kBorderOfViewer);
    letEventsRun();
    if (platform::desktop().bitsPerPixel() < kGoodDepth) {
        platform::dialogs().showMessage(
            QStringLiteral("All will work better and faster on 32bpp color depth."),
            core::kProgramName, platform::BoxIcon::Information);
    }
    letEventsRun();
    m_viewerExtent = kFirstViewerPlace;
    if (m_viewer->PanViewVisible()) {
        setChecks("optView", 0, nullptr, 0, true);
    }
    if (m_viewer->MouseScrolling()) {
        setChecks("optView", 13, "CmdRightView", 7, true);
    }
    setChecks("optView", 12, "CmdRightView", 6, m_viewer->ScrollBars() == 0);
    setChecks("optTools", 4, "optTools", 5, true);
    m_viewer->Refresh();
    m_viewer->PanViewRefresh();
    prepareLists();
    letEventsRun();
    if (const auto colour = core::setting(core::kViewerColour)) {
        m_viewer->setBackColor(*colour);
    }
    startAnimation();
    if (!m_unloaded) {
        writePresenceMarker();
    }
    // The switch inverts what stands here, so the stored state is what the window ends up in.
    m_bestFitToggle = !core::setting(core::kBestFit);
    toggleBestFit();
    letEventsRun();
    core::windows().unload(core::Window::frmWelcome);
}

void Form1::prepareLists()
{
    refillFavourites();
    refillRecentPaths();
    refillEditors();
}

void Form1::startAnimation()
{
    m_avi = std::make_unique<Avi>();
    m_avi->Create(platform::appFile(QStringLiteral("Images/AviMovie.avi")), m_aviHost, 0, 0,
                  m_aviHost->width(), m_aviHost->height());
    m_avi->AnimatePlay();
}

void Form1::writePresenceMarker()
{
    platform::setRegistryValue(kMarkerKey, kMarkerName, QStringLiteral("1"));
}

void Form1::SetLoad()
{
    // Each switch inverts the state that it finds.
    core::state().BrowserShown = !core::setting(core::kBrowseMode);
    OCbrowse();
    m_pictureRestored = core::state().PictureWide;
    setChecks("optView", 11, nullptr, 0, !core::setting(core::kPanView));
    Smallfrm();
    setChecks("optView", 12, nullptr, 0, !core::setting(core::kScrollBars));
    Scrollshow();
    setChecks("optView", 15, nullptr, 0, !core::setting(core::kZoomTool));
    fastZoomshow();
}

void Form1::becameActive()
{
    core::state().FlashPActive = false;
    if (!core::state().FirstActivate || m_unloaded) {
        return;
    }
    Np(m_dir2);
    core::state().CurrentFolder = m_dir2;
    core::state().FirstActivate = false;
}

void Form1::exitProgram()
{
    stopPlayer();
    core::windows().unload(kPlayerWindows);
    m_viewer->PanViewHide();
    m_listPath.clear();
    unload();
}

void Form1::unload()
{
    if (m_unloaded) {
        return;
    }
    m_unloaded = true;
    platform::beginClosing();
    files::folderTree().close();
    platform::setPointer(platform::Pointer::HourGlass);
    m_pipeline->stop_slideshow();
    m_viewer->PanViewHide();
    core::windows().unloadAll();
    stopPlayer();
    platform::removeFilesIn(platform::appFile(QStringLiteral("openTemp")));
    platform::deleteRegistryValue(kMarkerKey, kMarkerName);
    core::removeWorkingFiles();
    platform::setPointer(platform::Pointer::Default);
}

void Form1::closeEvent(QCloseEvent* event)
{
    unload();
    event->accept();
}

void Form1::wheelEvent(QWheelEvent* event)
{
    event->accept();
    const QPoint angle = event->angleDelta();
    if (angle.y() == 0 && angle.x() != 0) {
        return; // sideways wheels don't step
    }
    if (angle.isNull() && event->phase() != Qt::NoScrollPhase) {
        return; // fingers were put on a touchpad or lifted from it
    }
    m_wheelRest += angle.y();
    if (angle.y() != 0 && std::abs(m_wheelRest) < kWheelStep) {
        return;
    }
    const bool towardsUser = m_wheelRest < 0;
    m_wheelRest = 0;
    if (core::state().FlashPActive) {
        QWidget* const flash = core::windows().find(core::Window::FlashP);
        if (auto* player = dynamic_cast<core::PlayerWindow*>(flash)) {
            player->wheelStep(kFlashWheelCode);
        }
        return;
    }
    if (towardsUser) {
        nextpic();
    } else {
        prevpic();
    }
}
