#include "files/routing.h"

#include "core/interfaces.h"
#include "core/player_window.h"
#include "core/state.h"
#include "core/window_registry.h"
#include "files/classification.h"
#include "files/size_text.h"
#include "platform/desktop/pointer.h"
#include "platform/os/files.h"
#include "platform/os/paths.h"
#include "platform/pictures/picture_loader.h"

#include <QWidget>

namespace files {

namespace {

const QString kBlanks = QStringLiteral("     ");
const QString kPixel = QStringLiteral(" Pixel");

// A file that is no picture leaves the viewer as it was.
void loadIntoViewer(core::MainWindow& window, const QString& path)
{
    if (const std::optional<platform::Picture> picture = platform::loadPicture(path)) {
        window.viewer().setPicture(*picture);
    }
}

void openIn(QWidget* window, const QString& path)
{
    if (auto* player = dynamic_cast<core::PlayerWindow*>(window)) {
        player->openPath(path);
    }
}

void routeToFlash(core::MainWindow& window, const QString& path)
{
    core::windows().unload(core::Window::FlashP);
    openIn(core::windows().show(core::Window::FlashP), path);
    window.setXiala(path);
}

// Sound and pictures begin before the window appears.
void routeToMedia(const QString& path)
{
    core::windows().hide(core::Window::MpegForm);
    openIn(core::windows().load(core::Window::MpegForm), path);
    core::windows().show(core::Window::MpegForm);
}

void routeToWeb(const QString& path)
{
    if (core::state().BrowserOpen) {
        core::windows().unload(core::Window::FrmBrowser);
    }
    openIn(core::windows().show(core::Window::FrmBrowser), path);
}

} // namespace

void goEnter(core::MainWindow& window, const QString& path)
{
    if (isPlayerBound(path)) {
        routePath(window, path);
        return;
    }
    if (isOwnFormat(path)) {
        window.openPsd(path);
    } else {
        loadIntoViewer(window, path);
    }
    showNameAndSize(window, path);
}

void clickXiala(core::MainWindow& window, const QString& path)
{
    if (isOwnFormat(path)) {
        window.viewer().setPicture(platform::Picture());
    }
    goEnter(window, path);
}

void routePath(core::MainWindow& window, const QString& path)
{
    const platform::PointerGuard pointer;
    switch (routeOf(path)) {
    case Route::Flash:
        routeToFlash(window, path);
        return;
    case Route::Media:
        routeToMedia(path);
        break;
    case Route::Web:
        routeToWeb(path);
        break;
    case Route::Viewer:
        loadIntoViewer(window, path);
        core::state().CurrentFile = path;
        break;
    }
    window.setXiala(path);
    showFileFacts(window, path);
}

void showNameAndSize(core::MainWindow& window, const QString& path)
{
    core::StatusBar& bar = window.StateBar();
    if (const std::optional<qint64> size = platform::fileSize(path)) {
        bar.setPanel(core::Panel::FileSize, sizeText(*size) + kBlanks);
    }
    bar.setPanel(core::Panel::FileName, platform::fileNameOf(path) + kBlanks);
}

void showFileFacts(core::MainWindow& window, const QString& path)
{
    showNameAndSize(window, path);
    core::StatusBar& bar = window.StateBar();
    bar.setPanel(core::Panel::Width, QString::number(window.Image1().width()) + kPixel);
    bar.setPanel(core::Panel::Height, QString::number(window.Image1().height()) + kPixel);
}

} // namespace files
