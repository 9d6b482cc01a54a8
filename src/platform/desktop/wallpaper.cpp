#include "platform/desktop/wallpaper.h"

#include "platform/desktop/wallpaper_ways.h"
#include "platform/os/files.h"
#include "platform/os/paths.h"

#include <QStringList>
#include <algorithm>
#include <array>

namespace platform {

namespace {

struct Way {
    const char* desktop; // as sessions name it, in small letters
    bool (*show)(const WallpaperRequest& request);
};

constexpr std::array kWays{
    Way{"budgie", showOnGnome},
    Way{"cinnamon", showOnCinnamon},
    Way{"gnome", showOnGnome},
    Way{"kde", showOnPlasma},
    Way{"lubuntu", showOnLxqt},
    Way{"lxde", showOnLxde},
    Way{"lxqt", showOnLxqt},
    Way{"mate", showOnMate},
    Way{"pantheon", showOnGnome},
    Way{"plasma", showOnPlasma},
    Way{"plasmawayland", showOnPlasma},
    Way{"ubuntu", showOnGnome},
    Way{"unity", showOnGnome},
    Way{"x-cinnamon", showOnCinnamon},
    Way{"xfce", showOnXfce},
    Way{"xubuntu", showOnXfce},
};

const Way* wayNamed(const QString& desktop)
{
    const auto* const found = std::find_if(kWays.begin(), kWays.end(), [&desktop](const Way& way) {
        return desktop.compare(QLatin1String(way.desktop), Qt::CaseInsensitive) == 0;
    });
    return found != kWays.end() ? found : nullptr;
}

// What the session says that it is, the most particular name first. The older variables hold one
// name, or the path of the file that started the session.
QStringList desktopNames()
{
    QStringList names = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':');
    for (const char* const variable : {"XDG_SESSION_DESKTOP", "DESKTOP_SESSION"}) {
        names.append(fileNameOf(qEnvironmentVariable(variable)));
    }
    return names;
}

// Variants of a desktop carry its name before a hyphen, such as "GNOME-Flashback".
const Way* wayOfThisDesktop()
{
    for (const QString& name : desktopNames()) {
        for (const QString& candidate : {name, name.section(u'-', 0, 0)}) {
            if (const Way* const way = wayNamed(candidate)) {
                return way;
            }
        }
    }
    return nullptr;
}

} // namespace

bool showWallpaper(const WallpaperRequest& request)
{
    if (!isRegularFile(request.path)) {
        return false;
    }
    const Way* const way = wayOfThisDesktop();
    return (way != nullptr && way->show(request)) || showByPortal(request);
}

} // namespace platform
