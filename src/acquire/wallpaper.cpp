#include "acquire/wallpaper.h"

#include "acquire/command_line.h"
#include "core/picture_display.h"
#include "core/services.h"
#include "core/state.h"
#include "core/viewer.h"
#include "core/working_files.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/pointer.h"
#include "platform/os/files.h"
#include "platform/os/paths.h"
#include "platform/os/registry.h"
#include "platform/pictures/picture_box.h"
#include "platform/pictures/picture_saver.h"

#include <array>

namespace acquire {

namespace {

using platform::WallpaperStyle;

const QString kFileName = QStringLiteral("Kestrin Wallpaper.bmp");
const QString kValues = QStringLiteral("Control Panel\\Desktop");

struct StyleRow {
    bool core::State::*flag;
    WallpaperStyle style;
    const char* wallpaperStyle; // the values that tell of it
    const char* tileWallpaper;
};

constexpr std::array kStyles{
    StyleRow{&core::State::WallCenter, WallpaperStyle::Center, "0", "0"},
    StyleRow{&core::State::WallTile, WallpaperStyle::Tile, "0", "1"},
    StyleRow{&core::State::WallStretch, WallpaperStyle::Stretch, "2", "0"},
};

// By way of a working file, so that every kind of picture becomes a plain bitmap.
void writeWallpaperFile(core::PictureDisplay& display)
{
    display.Image1().setPicture(display.viewer().Picture());
    const auto plain = core::takenThrough(core::WorkingFile::Wallpaper, display.Image1().picture(),
                                          platform::OnFailure::Stop);
    if (plain && platform::makeFolder(platform::ownDataFolder())) {
        // Where that fails, the desktop is told of the file as it stands.
        static_cast<void>(platform::savePicture(*plain, wallpaperFile(), platform::Flush::ToDisk));
    }
}

// Each flag serves once; the last one that is set tells the style.
std::optional<WallpaperStyle> takeStyle()
{
    std::optional<WallpaperStyle> style;
    for (const StyleRow& row : kStyles) {
        if (core::state().*row.flag) {
            platform::setRegistryValue(kValues, QStringLiteral("WallpaperStyle"),
                                       QLatin1String(row.wallpaperStyle));
            platform::setRegistryValue(kValues, QStringLiteral("TileWallpaper"),
                                       QLatin1String(row.tileWallpaper));
            core::state().*row.flag = false;
            style = row.style;
        }
    }
    return style;
}

} // namespace

QString wallpaperFile()
{
    return platform::joinPath(platform::ownDataFolder(), kFileName);
}

void setWallpaper()
{
    if (core::services().display == nullptr) {
        return;
    }
    readCommandLine();
    writeWallpaperFile(*core::services().display);
    const platform::PointerGuard hourglass;
    const std::optional<WallpaperStyle> style = takeStyle();
    platform::desktop().setWallpaper(wallpaperFile(), style);
    platform::removeFile(core::workingFile(core::WorkingFile::Wallpaper));
}

} // namespace acquire
