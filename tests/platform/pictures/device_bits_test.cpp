#include "platform/pictures/transfers.h"

#include "platform/pictures/test_images.h"

#include <gtest/gtest.h>
#include <vector>

using platform::BitmapHeader;
using platform::StretchDIBits;
using test::expectPixels;
using test::filled;
using test::imageOf;

namespace {

constexpr QRgb kBlank = 0xFF123456;

std::vector<std::byte> bytesUpTo(int count)
{
    std::vector<std::byte> bytes;
    for (int i = 0; i < count; ++i) {
        bytes.push_back(std::byte(i + 1));
    }
    return bytes;
}

BitmapHeader headerOf(int width, int height, int bitCount)
{
    BitmapHeader header;
    header.width = width;
    header.height = height;
    header.bitCount = std::uint16_t(bitCount);
    for (int i = 0; i < 256; ++i) {
        header.colours[i].red = std::uint8_t(i);
        header.colours[i].green = std::uint8_t(i / 2);
        header.colours[i].blue = std::uint8_t(255 - i);
    }
    return header;
}

QRgb paletteColour(int index)
{
    return qRgb(index, index / 2, 255 - index);
}

} // namespace

TEST(StretchDIBits, DrawsPackedRowsOfFourBytesStraight)
{
    QImage target = filled(12, 2, kBlank);
    EXPECT_TRUE(StretchDIBits(target, headerOf(12, -2, 8), bytesUpTo(24)));
    expectPixels(target,
                 imageOf(12, 2, [](int x, int y) { return paletteColour(y * 12 + x + 1); }));
}

TEST(StretchDIBits, ShearsPackedRowsOfOtherLengths)
{
    QImage target = filled(10, 3, kBlank);
    EXPECT_TRUE(StretchDIBits(target, headerOf(10, -3, 8), bytesUpTo(30)));
    expectPixels(target, imageOf(10, 3, [](int x, int y) {
                     const int at = y * 12 + x;
                     return paletteColour(at < 30 ? at + 1 : 0);
                 }));
}

TEST(StretchDIBits, ShearsRowsOf24Bits)
{
    QImage target = filled(5, 2, kBlank);
    EXPECT_TRUE(StretchDIBits(target, headerOf(5, -2, 24), bytesUpTo(30)));
    expectPixels(target, imageOf(5, 2, [](int x, int y) {
                     const auto byteAt = [](int at) { return at < 30 ? at + 1 : 0; };
                     const int at = y * 16 + x * 3;
                     return qRgb(byteAt(at + 2), byteAt(at + 1), byteAt(at));
                 }));
}

TEST(StretchDIBits, DrawsPositiveHeightsFromTheBottomUp)
{
    QImage target = filled(4, 2, kBlank);
    EXPECT_TRUE(StretchDIBits(target, headerOf(4, 2, 8), bytesUpTo(8)));
    EXPECT_EQ(target.pixel(0, 0), paletteColour(5));
    EXPECT_EQ(target.pixel(0, 1), paletteColour(1));
}

TEST(StretchDIBits, Draws16And32Bits)
{
    QImage target = filled(2, 1, kBlank);
    const std::vector<std::byte> words = {std::byte(0x1F), std::byte(0x7C), std::byte(0xE0),
                                          std::byte(0x83)};
    EXPECT_TRUE(StretchDIBits(target, headerOf(2, -1, 16), words));
    EXPECT_EQ(target.pixel(0, 0), qRgb(255, 0, 255));
    EXPECT_EQ(target.pixel(1, 0), qRgb(0, 255, 0));
    EXPECT_TRUE(StretchDIBits(target, headerOf(2, -1, 32), bytesUpTo(8)));
    EXPECT_EQ(target.pixel(0, 0), qRgb(3, 2, 1));
    EXPECT_EQ(target.pixel(1, 0), qRgb(7, 6, 5));
}

TEST(StretchDIBits, StaysInsideTheTarget)
{
    QImage small = filled(2, 1, kBlank);
    EXPECT_TRUE(StretchDIBits(small, headerOf(4, -2, 8), bytesUpTo(8)));
    EXPECT_EQ(small.pixel(1, 0), paletteColour(2));
    QImage large = filled(6, 3, kBlank);
    EXPECT_TRUE(StretchDIBits(large, headerOf(4, -2, 8), bytesUpTo(8)));
    EXPECT_EQ(large.pixel(3, 1), paletteColour(8));
    EXPECT_EQ(large.pixel(4, 0), kBlank);
    EXPECT_EQ(large.pixel(0, 2), kBlank);
}

TEST(StretchDIBits, TakesMissingBytesAsZero)
{
    QImage target = filled(4, 3, kBlank);
    EXPECT_TRUE(StretchDIBits(target, headerOf(4, -3, 8), {}));
    expectPixels(target, filled(4, 3, paletteColour(0)));
    EXPECT_TRUE(StretchDIBits(target, headerOf(2147483647, 2147483647, 24), bytesUpTo(4)));
    expectPixels(target, filled(4, 3, qRgb(0, 0, 0)));
}

TEST(StretchDIBits, DrawsNothingForOtherBitmaps)
{
    QImage target = filled(4, 4, kBlank);
    for (const int depth : {0, 1, 4, 40}) {
        EXPECT_FALSE(StretchDIBits(target, headerOf(4, -4, depth), bytesUpTo(64)));
    }
    EXPECT_FALSE(StretchDIBits(target, headerOf(0, -4, 8), bytesUpTo(64)));
    EXPECT_FALSE(StretchDIBits(target, headerOf(4, 0, 8), bytesUpTo(64)));
    EXPECT_FALSE(StretchDIBits(target, headerOf(-4, 4, 8), bytesUpTo(64)));
    BitmapHeader packed = headerOf(4, -4, 8);
    packed.compression = 1;
    EXPECT_FALSE(StretchDIBits(target, packed, bytesUpTo(64)));
    expectPixels(target, filled(4, 4, kBlank));
    QImage none;
    EXPECT_FALSE(StretchDIBits(none, headerOf(4, -4, 8), bytesUpTo(64)));
}
