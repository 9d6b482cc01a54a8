#include "acquire/wallpaper.h"

#include "core/services.h"
#include "core/state.h"
#include "platform/desktop/pointer.h"
#include "platform/os/registry.h"
#include "platform/pictures/picture_loader.h"
#include "support/fake_desktop.h"
#include "support/fake_dialogs.h"
#include "support/fake_main_window.h"
#include "support/full_disk.h"
#include "support/ordinary_user.h"
#include "support/temp_tree.h"

#include <filesystem>
#include <gtest/gtest.h>

using platform::WallpaperStyle;

namespace {

const std::string kTarget = "data/vistara/Kestrin Wallpaper.bmp";
const std::string kWorkingFile = "app/Wallpaper.bmp";

std::optional<QString> value(const char* name)
{
    return platform::registryValue("Control Panel\\Desktop", QLatin1String(name));
}

// Notes what is there at the moment at which it is asked.
class WatchingDesktop : public support::FakeDesktop {
public:
    bool setWallpaper(const QString& path, std::optional<WallpaperStyle> style) override
    {
        pointer = platform::pointer();
        picture = platform::loadPicture(path);
        hadValues = value("WallpaperStyle") && value("TileWallpaper");
        hadWorkingFile = platform::isRegularFile(platform::appFile("Wallpaper.bmp"));
        flag = core::state().WallCenter || core::state().WallTile || core::state().WallStretch;
        return FakeDesktop::setWallpaper(path, style);
    }

    platform::Pointer pointer = platform::Pointer::Default;
    std::optional<platform::Picture> picture;
    bool hadValues = false;
    bool hadWorkingFile = false;
    bool flag = false;
};

QImage filled(QColor colour, QSize size = {5, 3})
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(colour);
    return image;
}

} // namespace

class WallpaperCommand : public testing::Test {
protected:
    WallpaperCommand() { show(filled(Qt::red)); }
    ~WallpaperCommand() override
    {
        core::state() = {};
        platform::setPointer(platform::Pointer::Default);
    }

    void show(const QImage& image) { form.viewer().setPicture(platform::Picture(image)); }

    // What ends every run, whatever has failed in it.
    void expectQuietEnd(std::optional<WallpaperStyle> style)
    {
        EXPECT_TRUE(dialogs.boxes.empty());
        EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
        ASSERT_EQ(desktop.wallpapers.size(), 1U);
        EXPECT_EQ(desktop.wallpapers[0],
                  (support::FakeDesktop::Wallpaper{tree.path(kTarget), style}));
        EXPECT_FALSE(core::state().WallCenter || core::state().WallTile ||
                     core::state().WallStretch);
    }

    [[nodiscard]] QImage targetImage() const
    {
        const auto picture = platform::loadPicture(tree.path(kTarget));
        return picture ? picture->flattened() : QImage();
    }

    static QImage flat(const QImage& image) { return platform::Picture(image).flattened(); }

    support::TempTree tree;
    support::FakeMainWindow form;
    support::FakeDialogs dialogs;
    WatchingDesktop desktop;
};

TEST_F(WallpaperCommand, WritesTheValuesOfEachStyleAndClearsItsFlag)
{
    struct Row {
        bool core::State::*flag;
        WallpaperStyle style;
        const char* wallpaperStyle;
        const char* tileWallpaper;
    };
    const Row rows[] = {
        {&core::State::WallCenter, WallpaperStyle::Center, "0", "0"},
        {&core::State::WallTile, WallpaperStyle::Tile, "0", "1"},
        {&core::State::WallStretch, WallpaperStyle::Stretch, "2", "0"},
    };
    for (const Row& row : rows) {
        desktop.wallpapers.clear();
        core::state().*row.flag = true;
        acquire::setWallpaper();
        EXPECT_EQ(value("WallpaperStyle"), QString(row.wallpaperStyle));
        EXPECT_EQ(value("TileWallpaper"), QString(row.tileWallpaper));
        expectQuietEnd(row.style);
    }
}

TEST_F(WallpaperCommand, TellsTheDesktopWhenAllIsWritten)
{
    core::state().WallStretch = true;
    acquire::setWallpaper();
    EXPECT_EQ(desktop.pointer, platform::Pointer::HourGlass);
    EXPECT_TRUE(desktop.hadValues);
    EXPECT_TRUE(desktop.hadWorkingFile);
    EXPECT_FALSE(desktop.flag);
    ASSERT_TRUE(desktop.picture);
    EXPECT_EQ(desktop.picture->flattened(), flat(filled(Qt::red)));
    EXPECT_FALSE(tree.exists(kWorkingFile));
    EXPECT_EQ(form.image1.picture().flattened(), flat(filled(Qt::red)));
}

TEST_F(WallpaperCommand, MakesAPlainBitmapOfEveryPicture)
{
    show(filled(QColor(0, 0, 255, 128)));
    acquire::setWallpaper();
    EXPECT_EQ(tree.content(kTarget).substr(0, 2), "BM");
    EXPECT_EQ(tree.content(kTarget).size(), 54U + 3 * 16);
    EXPECT_EQ(targetImage(), flat(filled(QColor(0, 0, 255, 128))));
}

TEST_F(WallpaperCommand, OverwritesTheOneFile)
{
    core::state().WallTile = true;
    acquire::setWallpaper();
    show(filled(Qt::green, {4, 4}));
    core::state().WallCenter = true;
    acquire::setWallpaper();
    EXPECT_EQ(targetImage(), flat(filled(Qt::green, {4, 4})));
    ASSERT_EQ(desktop.wallpapers.size(), 2U);
    EXPECT_EQ(desktop.wallpapers[0].path, desktop.wallpapers[1].path);
    const std::filesystem::directory_iterator files(tree.native("data/vistara"));
    EXPECT_EQ(std::distance(begin(files), end(files)), 1);
}

TEST_F(WallpaperCommand, NeedsANewChoiceForEachStyle)
{
    core::state().WallTile = true;
    acquire::setWallpaper();
    desktop.wallpapers.clear();
    acquire::setWallpaper();
    expectQuietEnd(std::nullopt);
    EXPECT_EQ(value("TileWallpaper"), QString("1"));
}

TEST_F(WallpaperCommand, TakesTheLastOfSeveralFlags)
{
    core::state().WallCenter = true;
    core::state().WallTile = true;
    core::state().WallStretch = true;
    acquire::setWallpaper();
    EXPECT_EQ(value("WallpaperStyle"), QString("2"));
    EXPECT_EQ(value("TileWallpaper"), QString("0"));
    expectQuietEnd(WallpaperStyle::Stretch);
}

TEST_F(WallpaperCommand, IsSilentWhenTheDesktopRefuses)
{
    desktop.succeeds = false;
    core::state().WallStretch = true;
    acquire::setWallpaper();
    expectQuietEnd(WallpaperStyle::Stretch);
    EXPECT_FALSE(tree.exists(kWorkingFile));
}

TEST_F(WallpaperCommand, KeepsTheOldPictureWhereTheFolderMayNotBeWritten)
{
    acquire::setWallpaper();
    desktop.wallpapers.clear();
    show(filled(Qt::green));
    std::filesystem::permissions(tree.native(""), std::filesystem::perms::all);
    std::filesystem::permissions(tree.native("app"), std::filesystem::perms::all);
    const std::string folder = tree.native("data/vistara");
    std::filesystem::permissions(tree.native(kTarget), std::filesystem::perms(0444));
    std::filesystem::permissions(folder, std::filesystem::perms(0555));
    {
        const support::OrdinaryUser user;
        core::state().WallCenter = true;
        acquire::setWallpaper();
    }
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all);
    EXPECT_EQ(targetImage(), flat(filled(Qt::red)));
    EXPECT_FALSE(tree.exists(kWorkingFile));
    expectQuietEnd(WallpaperStyle::Center);
}

TEST_F(WallpaperCommand, GoesOnWhereTheTargetCannotBe)
{
    for (const char* const inTheWay : {"data/vistara/Kestrin Wallpaper.bmp/", "data/vistara"}) {
        tree.remove("data/vistara");
        desktop.wallpapers.clear();
        tree.add({inTheWay});
        core::state().WallTile = true;
        acquire::setWallpaper();
        EXPECT_TRUE(targetImage().isNull());
        EXPECT_FALSE(tree.exists(kWorkingFile));
        expectQuietEnd(WallpaperStyle::Tile);
    }
}

TEST_F(WallpaperCommand, TakesNoOtherPictureWhereTheWorkingFileCannotBeWritten)
{
    acquire::setWallpaper();
    desktop.wallpapers.clear();
    show(filled(Qt::green));
    tree.add({kWorkingFile + "/"});
    acquire::setWallpaper();
    EXPECT_EQ(targetImage(), flat(filled(Qt::red)));
    expectQuietEnd(std::nullopt);
}

TEST_F(WallpaperCommand, GoesOnOnAFullDisk)
{
    acquire::setWallpaper();
    desktop.wallpapers.clear();
    show(filled(Qt::green));
    {
        const support::FullDisk full(50);
        core::state().WallStretch = true;
        acquire::setWallpaper();
    }
    EXPECT_EQ(targetImage(), flat(filled(Qt::red)));
    EXPECT_FALSE(tree.exists(kWorkingFile));
    expectQuietEnd(WallpaperStyle::Stretch);
}

TEST_F(WallpaperCommand, GoesOnWhereTheValuesCannotBeWritten)
{
    tree.remove("config");
    tree.add({"config", "no folder"});
    core::state().WallTile = true;
    acquire::setWallpaper();
    EXPECT_EQ(value("TileWallpaper"), std::nullopt);
    EXPECT_EQ(targetImage(), flat(filled(Qt::red)));
    expectQuietEnd(WallpaperStyle::Tile);
}

TEST_F(WallpaperCommand, DoesNothingWithoutAWindow)
{
    core::services().display = nullptr;
    core::state().WallTile = true;
    acquire::setWallpaper();
    EXPECT_TRUE(desktop.wallpapers.empty());
    EXPECT_FALSE(tree.exists(kTarget));
}
