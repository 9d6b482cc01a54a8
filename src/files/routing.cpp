#include "files/routing.h"

#include "core/file_field.h"
#include "core/picture_display.h"
#include "core/player_window.h"
#include "core/state.h"
#include "core/status_bar.h"
#include "core/viewer.h"
#include "core/window_registry.h"
#include "files/classification.h"
#include "files/size_text.h"
#include "platform/desktop/pointer.h"
#include "platform/os/files.h"
#include "platform/os/paths.h"
#include "platform/pictures/picture_box.h"
#include "platform/pictures/picture_loader.h"
#include "viewer/own_format_show.h"

#include <QWidget>

namespace files {

namespace {

const QString kBlanks = QStringLiteral("     ");
const QString kPixel = QStringLiteral(" Pixel");

// A file that is no picture leaves the viewer as it was.
void loadIntoViewer(core::Viewer& viewer, const QString& path)
{
    if (const std::optional<platform::Picture> picture = platform::loadPicture(path)) {
        viewer.setPicture(*picture);
    }
}

void openIn(QWidget* window, const QString& path)
{
    if (auto* player = dynamic_cast<core::PlayerWindow*>(window)) {
        player->openPath(path);
    }
}

void routeToFlash(core::FileField& field, const QString& path)
{
    core::windows().unload(core::Window::FlashP);
    openIn(core::windows().show(core::Window::FlashP), path);
    field.setXiala(path);
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

void goEnter(core::PictureDisplay& display, core::FileField& field, const QString& path)
{
    if (isPlayerBound(path)) {
        routePath(display, field, path);
        return;
    }
    if (isOwnFormat(path)) {
        viewer::showOwnFormat(display, path);
    } else {
        loadIntoViewer(display.viewer(), path);
    }
    showNameAndSize(display.StateBar(), path);
}

void clickXiala(core::PictureDisplay& display, core::FileField& field, const QString& path)
{
    if (isOwnFormat(path)) {
        display.viewer().setPicture(platform::Picture());
    }
    goEnter(display, field, path);
}

void routePath(core::PictureDisplay& display, core::FileField& field, const QString& path)
{
    const platform::PointerGuard pointer;
    switch (routeOf(path)) {
    case Route::Flash:
        routeToFlash(field, path);
        return;
    case Route::Media:
        routeToMedia(path);
        break;
    case Route::Web:
        routeToWeb(path);
        break;
    case Route::Viewer:
        loadIntoViewer(display.viewer(), path);
        core::state().CurrentFile = path;
        break;
    }
    field.setXiala(path);
    showFileFacts(display, path);
}

void showNameAndSize(core::StatusBar& bar, const QString& path)
{
    if (const std::optional<qint64> size = platform::fileSize(path)) {
        bar.setPanel(core::Panel::FileSize, sizeText(*size) + kBlanks);
    }
    bar.setPanel(core::Panel::FileName, platform::fileNameOf(path) + kBlanks);
}

void showFileFacts(core::PictureDisplay& display, const QString& path)
{
    core::StatusBar& bar = display.StateBar();
    showNameAndSize(bar, path);
    bar.setPanel(core::Panel::Width, QString::number(display.Image1().width()) + kPixel);
    bar.setPanel(core::Panel::Height, QString::number(display.Image1().height()) + kPixel);
}

} // namespace files
