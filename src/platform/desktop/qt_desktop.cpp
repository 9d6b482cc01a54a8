#include "platform/desktop/qt_desktop.h"

#include "platform/desktop/properties_sheet.h"
#include "platform/desktop/window_manager.h"
#include "platform/os/detached_process.h"
#include "platform/os/file_url.h"
#include "platform/os/files.h"
#include "platform/os/trash.h"

#include <QDesktopServices>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace platform {

int QtDesktop::bitsPerPixel() const
{
    const QScreen* const screen = QGuiApplication::primaryScreen();
    if (screen == nullptr) {
        return 32;
    }
    // A screen that shows 24 bits of colour, or more, takes 32 bits for each pixel.
    return screen->depth() >= 24 ? 32 : screen->depth();
}

bool QtDesktop::maximise(QWidget& window)
{
    const bool alone = !hasWindowManager();
    if (const QScreen* const screen = window.screen(); alone && screen != nullptr) {
        window.setGeometry(screen->availableGeometry());
    }
    window.setWindowState((window.windowState() & ~Qt::WindowMinimized) | Qt::WindowMaximized);
    return alone;
}

bool QtDesktop::openDocument(const QString& pathOrUrl)
{
    if (pathOrUrl.startsWith(u'/')) {
        const bool exists = isRegularFile(pathOrUrl) || isFolder(pathOrUrl);
        return exists && QDesktopServices::openUrl(fileUrl(pathOrUrl));
    }
    const QUrl url(pathOrUrl);
    return url.isValid() && !url.scheme().isEmpty() && QDesktopServices::openUrl(url);
}

bool QtDesktop::startProgram(const QString& path, const QStringList& arguments)
{
    return startDetached(path, arguments);
}

void QtDesktop::showProperties(const QString& path, QWidget* parent)
{
    showPropertiesSheet(path, parent);
}

bool QtDesktop::moveToTrash(const QString& path)
{
    return trashFile(path);
}

bool QtDesktop::setWallpaper(const QString& path, std::optional<WallpaperStyle> style)
{
    return showWallpaper({path, style});
}

} // namespace platform
