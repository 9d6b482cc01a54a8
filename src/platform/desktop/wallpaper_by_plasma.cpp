#include "platform/desktop/session_bus.h"
#include "platform/desktop/wallpaper_styles.h"
#include "platform/desktop/wallpaper_ways.h"
#include "platform/os/file_url.h"

namespace platform {

namespace {

// For every desktop of every screen and activity. %1 stands for what is written there.
const QString kForEachDesktop = QStringLiteral(R"(var all = desktops();
for (var i = 0; i < all.length; ++i) {
    var shown = all[i];
    shown.wallpaperPlugin = "org.kde.image";
    shown.currentConfigGroup = ["Wallpaper", "org.kde.image", "General"];
%1}
)");

QString pictureLine(const QString& address)
{
    return QStringLiteral("    shown.writeConfig(\"Image\", \"%1\");\n").arg(address);
}

QString styleLine(WallpaperStyle style)
{
    return QStringLiteral("    shown.writeConfig(\"FillMode\", %1);\n").arg(namesOf(style).plasma);
}

bool runs(const QString& lines)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.kde.plasmashell"), QStringLiteral("/PlasmaShell"),
        QStringLiteral("org.kde.PlasmaShell"), QStringLiteral("evaluateScript"));
    // Not arg(): an address is full of percent signs.
    call << QString(kForEachDesktop).replace(QStringLiteral("%1"), lines);
    return isGood(answerOnBus(call));
}

} // namespace

// A script's values are looked at when it has ended, so there are two.
bool showOnPlasma(const WallpaperRequest& request)
{
    const QString style = request.style ? styleLine(*request.style) : QString();
    return runs(pictureLine({})) && runs(style + pictureLine(fileAddress(request.path)));
}

} // namespace platform
