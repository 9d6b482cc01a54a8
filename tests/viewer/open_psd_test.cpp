#include "core/state.h"
#include "formats/hooks.h"
#include "platform/pictures/picture_loader.h"
#include "support/temp_tree.h"
#include "test_pictures.h"
#include "viewer/open_psd.h"
#include "viewer/raw_image_show.h"
#include "viewer_main_window.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <vector>

namespace {

// Palette entry i is (blue i, green 255 - i, red i / 2); pixel n holds n.
RawImage indexedImage(int width, int height)
{
    RawImage image;
    image.Width = width;
    image.Height = height;
    image.BitDepth = 8;
    for (int i = 0; i < 256; ++i) {
        image.Palette.push_back({std::uint8_t(i), std::uint8_t(255 - i), std::uint8_t(i / 2), 0});
    }
    EXPECT_TRUE(image.Pixels.resizeZeroed(std::size_t(width) * std::size_t(height)));
    std::iota(image.Pixels.begin(), image.Pixels.end(), std::uint8_t(0));
    return image;
}

RawImage trueColourImage(int width, int height)
{
    RawImage image;
    image.Width = width;
    image.Height = height;
    image.BitDepth = 24;
    EXPECT_TRUE(image.Pixels.resizeZeroed(std::size_t(width) * std::size_t(height) * 3));
    std::iota(image.Pixels.begin(), image.Pixels.end(), std::uint8_t(1));
    return image;
}

QRgb paletteColour(int index)
{
    return qRgb(index / 2, 255 - index, index);
}

// What the bytes of the record give at a stride of four, zeros behind their end.
QRgb expectedPixel(const RawImage& image, int x, int y)
{
    const int bytes = image.BitDepth / 8;
    const int stride = (image.Width * bytes + 3) / 4 * 4;
    const auto at = [&image](int index) {
        return index < int(image.Pixels.size()) ? int(image.Pixels[std::size_t(index)]) : 0;
    };
    const int first = y * stride + x * bytes;
    if (bytes == 1) {
        return paletteColour(at(first));
    }
    return qRgb(at(first + 2), at(first + 1), at(first));
}

void expectDrawn(const RawImage& image)
{
    platform::PictureBox box(image.Width, image.Height);
    ShowRawImage(box, image);
    for (int y = 0; y < image.Height; ++y) {
        for (int x = 0; x < image.Width; ++x) {
            EXPECT_EQ(box.surface().pixel(x, y), expectedPixel(image, x, y)) << x << "," << y;
        }
    }
}

TEST(ShowRawImage, DrawsRowsOfAMultipleOfFourBytesStraight)
{
    const RawImage indexed = indexedImage(12, 5);
    platform::PictureBox box(12, 5);
    ShowRawImage(box, indexed);
    for (int i = 0; i < 60; ++i) {
        EXPECT_EQ(box.surface().pixel(i % 12, i / 12), paletteColour(i));
    }
    const RawImage coloured = trueColourImage(4, 2);
    ShowRawImage(box, coloured);
    EXPECT_EQ(box.surface().pixel(0, 1), qRgb(15, 14, 13));
    expectDrawn(coloured);
}

TEST(ShowRawImage, ShearsOtherRowsAndEndsInZeros)
{
    const RawImage indexed = indexedImage(10, 6);
    expectDrawn(indexed);
    // Row 5 begins at byte 60, where the record ends.
    platform::PictureBox box(10, 6);
    ShowRawImage(box, indexed);
    EXPECT_EQ(box.surface().pixel(0, 1), paletteColour(12));
    EXPECT_EQ(box.surface().pixel(0, 5), paletteColour(0));
    expectDrawn(trueColourImage(5, 4));
}

TEST(ShowRawImage, BearsARecordThatDisagreesWithItself)
{
    RawImage image = indexedImage(12, 5);
    image.Width = 300;
    image.Height = 200;
    expectDrawn(image);
    image.Palette.clear();
    image.Pixels.clear();
    platform::PictureBox box(4, 4);
    ShowRawImage(box, image);
    EXPECT_EQ(box.surface().pixel(0, 0), qRgb(0, 0, 0));
    image.BitDepth = 40;
    ShowRawImage(box, image);
    image.Width = -5;
    ShowRawImage(box, image);
    EXPECT_EQ(box.surface().pixel(3, 3), qRgb(0, 0, 0));
}

// A PCX file of 8 bits a pixel without runs; pixel n holds n modulo 64.
std::string pcxFile(int width, int height)
{
    std::string bytes(128, '\0');
    const auto put16 = [&bytes](std::size_t at, int value) {
        bytes[at] = char(value & 0xFF);
        bytes[at + 1] = char(value >> 8);
    };
    bytes[0] = 10;
    bytes[1] = 5;
    bytes[2] = 1;
    bytes[3] = 8;
    put16(8, width - 1);
    put16(10, height - 1);
    bytes[65] = 1;
    put16(66, width);
    for (int i = 0; i < width * height; ++i) {
        bytes += char(i % 64);
    }
    bytes += char(12);
    for (int i = 0; i < 256; ++i) {
        bytes += char(i);
        bytes += char(255 - i);
        bytes += char(i / 2);
    }
    return bytes;
}

class OpenPsd : public testing::Test {
protected:
    OpenPsd()
        : tree({{"pics/a.pcx", pcxFile(12, 5)},
                {"pics/wide.pcx", pcxFile(40, 8)},
                {"pics/three.tif", "abc"},
                {"pics/empty.tga", ""}})
    {
        core::state() = {};
    }
    ~OpenPsd() override { core::state() = {}; }

    support::TempTree tree;
    ViewerMainWindow main;
};

TEST_F(OpenPsd, ShowsTheFileThroughTheWorkingFile)
{
    viewer::openPsd(main, tree.path("pics/a.pcx"));
    EXPECT_EQ(main.image1.width(), 12);
    EXPECT_EQ(main.image1.height(), 5);
    EXPECT_EQ(main.picture.PictureWidth(), 12);
    EXPECT_EQ(main.picture.PictureHeight(), 5);
    const auto saved = platform::loadPicture(tree.path("app/temp.bmp"));
    ASSERT_TRUE(saved.has_value());
    for (int i = 0; i < 60; ++i) {
        const QRgb colour = qRgb(i, 255 - i, i / 2);
        EXPECT_EQ(saved->image().pixel(i % 12, i / 12), colour);
        EXPECT_EQ(main.picture.Picture().image().pixel(i % 12, i / 12), colour);
        EXPECT_EQ(main.image1.surface().pixel(i % 12, i / 12), colour);
    }
}

TEST_F(OpenPsd, WritesTheSizePanelsUnderTheHourglass)
{
    viewer::openPsd(main, tree.path("pics/a.pcx"));
    EXPECT_EQ(main.panels.panels[core::Panel::Width], "12      Pixel");
    EXPECT_EQ(main.panels.panels[core::Panel::Height], "5      Pixel");
    EXPECT_EQ(main.panels.pointer, platform::Pointer::HourGlass);
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(OpenPsd, DropsThePictureThatStoodOnTheBox)
{
    main.image1.setPicture(plainPicture(70, 70));
    viewer::openPsd(main, tree.path("pics/a.pcx"));
    EXPECT_TRUE(main.image1.picture().isNothing());
    EXPECT_EQ(main.image1.width(), 12);
}

TEST_F(OpenPsd, ClearsTheBoxBeforeItReadsTheFile)
{
    // Three raw planes; the reader misses a fourth and says so while it reads.
    const std::string header("8BPS\0\1\0\0\0\0\0\0\0\3\0\0\0\1\0\0\0\2\0\10\0\3", 26);
    tree.add(
        {"pics/three.psd", header + std::string(14, '\0') + std::string("\377\377\0\0\0\0", 6)});
    main.image1.setPicture(plainPicture(70, 60));
    int reports = 0;
    formats::setHooks({[&](const char*) {
                           ++reports;
                           EXPECT_TRUE(main.image1.picture().isNothing());
                           EXPECT_EQ(main.image1.surface().pixel(35, 30), qRgb(255, 255, 255));
                       },
                       {}});
    viewer::openPsd(main, tree.path("pics/three.psd"));
    formats::setHooks({});
    EXPECT_EQ(reports, 1);
    EXPECT_EQ(main.image1.width(), 2);
    EXPECT_EQ(main.picture.Picture().image().pixel(1, 0), qRgb(255, 0, 0));
}

TEST_F(OpenPsd, ShowsThePreviousRecordForAFileThatNoReaderTakes)
{
    viewer::openPsd(main, tree.path("pics/a.pcx"));
    for (const char* name : {"pics/three.tif", "pics/empty.tga", "pics/missing.psd"}) {
        main.picture.setPicture(plainPicture(33, 33));
        ASSERT_TRUE(platform::removeFile(tree.path("app/temp.bmp")));
        viewer::openPsd(main, tree.path(name));
        EXPECT_EQ(main.picture.PictureWidth(), 12) << name;
        EXPECT_TRUE(tree.exists("app/temp.bmp")) << name;
    }
}

TEST_F(OpenPsd, LeavesEverythingWhenNothingWasEverDecoded)
{
    main.picture.setPicture(plainPicture(33, 33));
    viewer::openPsd(main, tree.path("pics/three.tif"));
    EXPECT_EQ(main.picture.PictureWidth(), 33);
    EXPECT_EQ(main.image1.width(), 1);
    EXPECT_FALSE(tree.exists("app/temp.bmp"));
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(OpenPsd, LeavesEverythingForASizeThatNoBoxTakes)
{
    for (const auto& [width, height] :
         {std::pair(-3, 5), std::pair(5, 0), std::pair(5, -2), std::pair(2000000000, 2000000000)}) {
        core::state().rawImage.Width = width;
        core::state().rawImage.Height = height;
        viewer::openPsd(main, tree.path("pics/missing.psd"));
        EXPECT_EQ(main.image1.width(), 1);
        EXPECT_FALSE(tree.exists("app/temp.bmp"));
    }
}

TEST_F(OpenPsd, GoesOnWhereTheWorkingFileCannotBeWritten)
{
    tree.add({"app/temp.bmp/in the way", ""});
    main.picture.setPicture(plainPicture(33, 33));
    viewer::openPsd(main, tree.path("pics/a.pcx"));
    EXPECT_EQ(main.picture.PictureWidth(), 33);
    EXPECT_EQ(main.panels.panels[core::Panel::Width], "33      Pixel");
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(OpenPsd, DecodesOntoAnyBoxWithoutTouchingThePanels)
{
    platform::PictureBox box(3, 3);
    EXPECT_TRUE(viewer::decodeToBox(tree.path("pics/wide.pcx"), box));
    EXPECT_EQ(box.width(), 40);
    EXPECT_EQ(box.height(), 8);
    EXPECT_EQ(box.surface().pixel(3, 0), qRgb(3, 252, 1));
    EXPECT_TRUE(main.panels.panels.empty());
}

TEST_F(OpenPsd, FollowsFilesOfDifferentSizes)
{
    for (const auto& [name, width] : {std::pair("pics/a.pcx", 12), std::pair("pics/wide.pcx", 40),
                                      std::pair("pics/a.pcx", 12)}) {
        viewer::openPsd(main, tree.path(name));
        EXPECT_EQ(main.picture.PictureWidth(), width);
        EXPECT_EQ(main.image1.width(), width);
    }
}

} // namespace
