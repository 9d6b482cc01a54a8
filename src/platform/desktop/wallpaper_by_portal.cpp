#include "platform/desktop/session_bus.h"
#include "platform/desktop/wallpaper_ways.h"
#include "platform/os/files.h"

#include <QDBusUnixFileDescriptor>
#include <QFile>

namespace platform {

namespace {

const QVariantMap kOptions = {{QStringLiteral("show-preview"), false},
                              {QStringLiteral("set-on"), QStringLiteral("background")}};

} // namespace

// The portal takes an open file alone, since it may stand where the path leads elsewhere. Whether
// the user then agrees is told later, to nobody.
bool showByPortal(const WallpaperRequest& request)
{
    const auto file = openForReading(request.path);
    if (file == nullptr) {
        return false;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(
        kPortalService, kPortalPath, QStringLiteral("org.freedesktop.portal.Wallpaper"),
        QStringLiteral("SetWallpaperFile"));
    const QString noParentWindow;
    call << noParentWindow << QVariant::fromValue(QDBusUnixFileDescriptor(file->handle()))
         << kOptions;
    return isGood(answerOnBus(call));
}

} // namespace platform
