#include "platform/os/registry.h"

#include "platform/os/paths.h"
#include "support/ordinary_user.h"
#include "support/temp_tree.h"
#include "support/unruly_disk.h"

#include <filesystem>
#include <gtest/gtest.h>

using support::TempTree;

namespace {

constexpr const char* kKeyPath = "Software\\Corvane\\Qlink";

} // namespace

TEST(Hive, KeepsValuesBySectionAndKey)
{
    const TempTree tree;
    platform::saveSetting("Thumbnail", "Size", "120");
    platform::saveSetting("Thumbnail", "Colorpreset", "3");
    platform::saveSetting("Print", "Resolution", "300");
    EXPECT_EQ(platform::getSetting("Thumbnail", "Size"), "120");
    EXPECT_EQ(platform::getSetting("Thumbnail", "Colorpreset"), "3");
    EXPECT_EQ(platform::getSetting("Print", "Resolution"), "300");
    EXPECT_NE(tree.content("config/vistara/settings.ini").find("Size=120"), std::string::npos);
}

TEST(Hive, KeepsEveryPath)
{
    const TempTree tree;
    for (const std::string& path :
         {std::string("/home/eva/a, b; c = \"d\""), std::string("/bad\xFF\xFEname"),
          std::string("/two\nlines"), std::string("/caf\xC3\xA9"), std::string(3000, 'x'),
          std::string("@odd(1)"), std::string(" blanks ")}) {
        platform::saveSetting("Locations", "Path", platform::fromNative(path));
        EXPECT_EQ(platform::toNative(platform::getSetting("Locations", "Path")), path);
    }
}

TEST(Hive, MakesNothingWhenItIsOnlyRead)
{
    const TempTree tree;
    EXPECT_EQ(platform::getSetting("Thumbnail", "Size"), "");
    EXPECT_EQ(platform::getSetting("Thumbnail", "Size", "80"), "80");
    EXPECT_FALSE(platform::registryValue(kKeyPath, "Brelmark"));
    platform::deleteRegistryValue(kKeyPath, "Brelmark");
    EXPECT_FALSE(tree.exists("config/vistara"));
}

TEST(Hive, SurvivesAFolderThatCantBeWritten)
{
    TempTree tree;
    tree.setVariable("XDG_CONFIG_HOME", "/proc");
    platform::saveSetting("Thumbnail", "Size", "120");
    platform::setRegistryValue(kKeyPath, "Brelmark", "1");
    platform::deleteRegistryValue(kKeyPath, "Brelmark");
    EXPECT_FALSE(platform::isFolder("/proc/vistara"));
}

TEST(Hive, KeepsItsValuesOnADiskThatFailsLate)
{
    const TempTree tree;
    platform::saveSetting("Thumbnail", "Size", "80");
    const std::string before = tree.content("config/vistara/settings.ini");
    {
        support::UnrulyDisk disk;
        disk.syncError = ENOSPC;
        platform::saveSetting("Thumbnail", "Size", "120");
    }
    EXPECT_EQ(tree.content("config/vistara/settings.ini"), before);
    EXPECT_EQ(platform::getSetting("Thumbnail", "Size"), "80");
    platform::saveSetting("Thumbnail", "Size", "120");
    EXPECT_EQ(platform::getSetting("Thumbnail", "Size"), "120");
}

TEST(Hive, IsPrivateAndLeavesNothingBeside)
{
    const TempTree tree;
    platform::saveSetting("Thumbnail", "Size", "80");
    platform::saveSetting("Thumbnail", "Size", "120");
    const std::filesystem::path folder = tree.native("config/vistara");
    EXPECT_EQ(std::filesystem::status(folder / "settings.ini").permissions(),
              std::filesystem::perms(0600));
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        EXPECT_EQ(entry.path().filename(), "settings.ini");
    }
}

TEST(Hive, TakesValuesAgainAfterItWasDamaged)
{
    const TempTree tree({{"config/vistara/settings.ini", "]garbage\x01[\nno value\n"}});
    platform::saveSetting("Thumbnail", "Size", "80");
    EXPECT_EQ(platform::getSetting("Thumbnail", "Size"), "80");
}

TEST(Hive, SeesEveryChangeHoweverFast)
{
    const TempTree tree;
    for (int i = 10; i < 60; ++i) {
        platform::saveSetting("Thumbnail", "Size", QString::number(i));
        ASSERT_EQ(platform::getSetting("Thumbnail", "Size"), QString::number(i));
    }
}

TEST(Hive, NeverTakesAnUnreadableFileForAnEmptyOne)
{
    const TempTree tree({{"config/vistara/settings.ini", "[Thumbnail]\nSize=80\n"}});
    std::filesystem::permissions(tree.native("."), std::filesystem::perms::all);
    std::filesystem::permissions(tree.native("config/vistara"), std::filesystem::perms::all);
    std::filesystem::permissions(tree.native("config/vistara/settings.ini"),
                                 std::filesystem::perms(0222));
    {
        const support::OrdinaryUser user;
        platform::saveSetting("Thumbnail", "Color", "1");
    }
    std::filesystem::permissions(tree.native("config/vistara/settings.ini"),
                                 std::filesystem::perms(0666));
    EXPECT_EQ(platform::getSetting("Thumbnail", "Size"), "80");
}

TEST(Registry, SetsAndDeletesOnDiskAtOnce)
{
    const TempTree tree;
    platform::setRegistryValue(kKeyPath, "Brelmark", "1");
    EXPECT_EQ(platform::registryValue(kKeyPath, "Brelmark"), QString("1"));
    EXPECT_NE(tree.content("config/vistara/registry.ini").find("Brelmark=1"), std::string::npos);

    platform::deleteRegistryValue(kKeyPath, "Brelmark");
    EXPECT_FALSE(platform::registryValue(kKeyPath, "Brelmark"));
    EXPECT_EQ(tree.content("config/vistara/registry.ini").find("Brelmark"), std::string::npos);
}

TEST(Registry, KeepsOtherValuesWhenOneIsDeleted)
{
    const TempTree tree;
    platform::setRegistryValue("Control Panel\\Desktop", "WallpaperStyle", "2");
    platform::setRegistryValue("Control Panel\\Desktop", "TileWallpaper", "0");
    platform::deleteRegistryValue("Control Panel\\Desktop", "TileWallpaper");
    EXPECT_EQ(platform::registryValue("Control Panel\\Desktop", "WallpaperStyle"), QString("2"));
}
