#include "delivered_files.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>

namespace {

constexpr std::array kToolbar{
    "open",      "save",   "zoomin",  "zoomout",    "fullsize", "forward",   "back",
    "slideshow", "start",  "stop",    "slower",     "faster",   "favourite", "addfavourite",
    "help",      "update", "browse",  "mail",       "bestfit",  "frame",     "fullscreen",
    "up",        "tools",  "refresh", "properties", "rename",   "delete",    "copy",
    "move",      "go",     "folder",  "drive",      "home",     "picture"};

constexpr std::array kDensityEndings{".png", "@2x.png", "@3x.png"};

bool hasPaint(const QImage& image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).alpha() > 200) {
                return true;
            }
        }
    }
    return false;
}

QSize decodedSize(const std::string& name, const char* format)
{
    return delivered::imageOf(delivered::picture(name), format).size();
}

TEST(DeliveredPictures, ToolbarPicturesComeInThreeDensities)
{
    for (const std::string name : kToolbar) {
        int factor = 1;
        for (const char* const ending : kDensityEndings) {
            const QImage image =
                delivered::imageOf(delivered::picture("toolbar/" + name + ending), "PNG");
            EXPECT_EQ(image.size(), QSize(24 * factor, 24 * factor)) << name << ending;
            EXPECT_TRUE(hasPaint(image)) << name << ending;
            ++factor;
        }
    }
}

TEST(DeliveredPictures, ToolbarPicturesLetAnyGroundShine)
{
    for (const std::string name : kToolbar) {
        const QImage image =
            delivered::imageOf(delivered::picture("toolbar/" + name + ".png"), "PNG");
        EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0) << name;
        EXPECT_EQ(image.pixelColor(23, 23).alpha(), 0) << name;
    }
}

TEST(DeliveredPictures, PointersHaveTheirHotSpotInTheMiddleOf32Pixels)
{
    for (const std::string name : {"grab", "release", "precise"}) {
        const QImage single =
            delivered::imageOf(delivered::picture("cursors/" + name + ".png"), "PNG");
        const QImage twofold =
            delivered::imageOf(delivered::picture("cursors/" + name + "@2x.png"), "PNG");
        ASSERT_EQ(single.size(), QSize(32, 32)) << name;
        EXPECT_EQ(twofold.size(), QSize(64, 64)) << name;
        EXPECT_GT(single.pixelColor(16, 16).alpha(), 128) << name;
    }
}

TEST(DeliveredPictures, WindowPicturesDecodeInTheFormatOfTheirName)
{
    const std::array<std::pair<const char*, QSize>, 5> gifs{{
        {"Titlebar.gif", QSize(1600, 32)},
        {"UserInterface.gif", QSize(240, 160)},
        {"WindowsStand.gif", QSize(240, 160)},
        {"Search.gif", QSize(64, 64)},
        {"Searchgoogle.gif", QSize(240, 48)},
    }};
    for (const auto& [name, size] : gifs) {
        EXPECT_EQ(decodedSize(name, "GIF"), size) << name;
    }
    EXPECT_EQ(decodedSize("Copyfile.jpg", "JPG"), QSize(360, 60));
    EXPECT_EQ(decodedSize("Movefile.jpg", "JPG"), QSize(360, 60));
    EXPECT_EQ(decodedSize("opcolse.jpg", "JPG"), QSize(48, 12));
    EXPECT_EQ(decodedSize("Opcolse-1.jpg", "JPG"), QSize(48, 12));
}

TEST(DeliveredPictures, StartAndAboutPicturesComeInTwoDensities)
{
    EXPECT_EQ(decodedSize("splash.png", "PNG"), QSize(480, 280));
    EXPECT_EQ(decodedSize("splash@2x.png", "PNG"), QSize(960, 560));
    EXPECT_EQ(decodedSize("about.png", "PNG"), QSize(480, 160));
    EXPECT_EQ(decodedSize("about@2x.png", "PNG"), QSize(960, 320));
}

TEST(DeliveredPictures, TheTitleStripIsDarkEnoughForWhiteText)
{
    const QImage strip = delivered::imageOf(delivered::picture("Titlebar.gif"), "GIF");
    ASSERT_FALSE(strip.isNull());
    for (int x = 0; x < 320; ++x) {
        EXPECT_LT(strip.pixelColor(x, 10).lightnessF(), 0.5) << x;
    }
}

} // namespace
