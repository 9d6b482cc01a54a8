#include "platform/pictures/raw_image_drawing.h"

#include "platform/pictures/own_format_files.h"
#include "platform/pictures/test_images.h"
#include "support/temp_tree.h"

#include <gtest/gtest.h>
#include <numeric>

using platform::OnFailure;

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

} // namespace

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

TEST(DecodingToABox, GivesTheBoxTheSizeAndTheRowsOfThePicture)
{
    const support::TempTree tree({{"pics/wide.pcx", test::pcxFile(40, 8)}});
    for (const OnFailure onRefusal : {OnFailure::GoOn, OnFailure::Stop}) {
        platform::PictureBox box(3, 3);
        RawImage record;
        EXPECT_TRUE(platform::decodeToBox(tree.path("pics/wide.pcx"), box, record, onRefusal));
        EXPECT_EQ(box.width(), 40);
        EXPECT_EQ(box.height(), 8);
        EXPECT_EQ(box.surface().pixel(3, 0), qRgb(3, 252, 1));
    }
}

TEST(DecodingToABox, DrawsTheRecordForARefusedFileOnlyWhenItGoesOn)
{
    const support::TempTree tree({{"pics/words.tga", "words"}});
    RawImage record = indexedImage(12, 5);
    platform::PictureBox box(3, 3);
    box.setPicture(platform::Picture(test::filled(3, 3, qRgb(9, 9, 9))));
    EXPECT_FALSE(platform::decodeToBox(tree.path("pics/words.tga"), box, record, OnFailure::Stop));
    EXPECT_EQ(box.width(), 3);
    EXPECT_EQ(box.surface().pixel(1, 1), qRgb(255, 255, 255));
    EXPECT_TRUE(platform::decodeToBox(tree.path("pics/words.tga"), box, record, OnFailure::GoOn));
    EXPECT_EQ(box.width(), 12);
    EXPECT_EQ(box.surface().pixel(7, 4), paletteColour(55));
}
