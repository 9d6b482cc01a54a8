#include "platform/registry.h"

#include "platform/paths.h"
#include "support/temp_tree.h"

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
