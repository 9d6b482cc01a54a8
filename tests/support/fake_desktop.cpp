#include "support/fake_desktop.h"

#include "platform/os/files.h"

#include <QWidget>

namespace support {

bool FakeDesktop::maximise(QWidget& window)
{
    window.setGeometry(area);
    window.overrideWindowState(Qt::WindowMaximized);
    return true;
}

bool FakeDesktop::openDocument(const QString& pathOrUrl)
{
    opened.append(pathOrUrl);
    return succeeds;
}

bool FakeDesktop::startProgram(const QString& path, const QStringList& arguments)
{
    started.push_back({path, arguments});
    return succeeds;
}

void FakeDesktop::showProperties(const QString& path, QWidget*)
{
    shownProperties.append(path);
}

bool FakeDesktop::moveToTrash(const QString& path)
{
    trashed.append(path);
    if (succeeds && removesTrashed) {
        platform::removeFile(path);
    }
    return succeeds;
}

bool FakeDesktop::setWallpaper(const QString& path, std::optional<platform::WallpaperStyle> style)
{
    wallpapers.push_back({path, style});
    return succeeds;
}

} // namespace support
