#include "platform/desktop/desktop_program.h"
#include "platform/desktop/wallpaper_styles.h"
#include "platform/desktop/wallpaper_ways.h"

// Desktops whose file manager draws the background.
namespace platform {

namespace {

QString modeOption(const char* mode)
{
    return QStringLiteral("--wallpaper-mode=") + QLatin1String(mode);
}

bool showBy(const QString& fileManager, const WallpaperRequest& request)
{
    QStringList options = {QStringLiteral("--set-wallpaper=") + request.path};
    if (request.style) {
        // Nothing but the colour behind the picture.
        if (runDesktopProgram(fileManager, {modeOption("color")}) == DesktopProgram::Missing) {
            return false;
        }
        options.append(modeOption(namesOf(*request.style).fileManager));
    }
    return runDesktopProgram(fileManager, options) == DesktopProgram::Done;
}

} // namespace

bool showOnLxqt(const WallpaperRequest& request)
{
    return showBy(QStringLiteral("pcmanfm-qt"), request);
}

bool showOnLxde(const WallpaperRequest& request)
{
    return showBy(QStringLiteral("pcmanfm"), request);
}

} // namespace platform
