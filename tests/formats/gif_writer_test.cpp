#include "formats/gif_writer.h"

#include "formats/gif_reading.h"
#include "formats/plain_gif_coder.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using gif::byteAt;
using gif::Bytes;
using gif::Decoded;
using gif::decodeImage;
using gif::Pixels;
using gif::PlainCoder;
using gif::wordAt;

constexpr std::size_t kHeadBytes = 6 + 7 + 768 + 1;

struct Bitmap {
    formats::GifBitmapInfo info;
    Bytes bits;
};

// A bitmap of the pixels given from the top row down. The padding holds a colour that must never
// reach the file.
Bitmap makeBitmap(int width, int height, const Pixels& pixels)
{
    Bitmap bitmap;
    bitmap.info.width = width;
    bitmap.info.height = height;
    for (std::size_t i = 0; i < 256; ++i) {
        const auto value = static_cast<std::uint8_t>(i);
        bitmap.info.colours[i] = {value, static_cast<std::uint8_t>(value ^ 0x55U),
                                  static_cast<std::uint8_t>(255U - value)};
    }
    const std::size_t stride = formats::gifStride(bitmap.info);
    bitmap.bits.assign(stride * static_cast<std::size_t>(height), std::byte{0xEE});
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            bitmap.bits[static_cast<std::size_t>(height - 1 - y) * stride +
                        static_cast<std::size_t>(x)] =
                static_cast<std::byte>(pixels[static_cast<std::size_t>(y * width + x)]);
        }
    }
    return bitmap;
}

Pixels noise(std::size_t count, unsigned colours, unsigned seed)
{
    std::mt19937 random(seed);
    Pixels pixels(count);
    for (std::uint8_t& pixel : pixels) {
        pixel = static_cast<std::uint8_t>(random() % colours);
    }
    return pixels;
}

// Long runs with a few specks, the way drawings look.
Pixels drawing(std::size_t count, unsigned seed)
{
    std::mt19937 random(seed);
    Pixels pixels;
    while (pixels.size() < count) {
        const std::size_t run = 1 + random() % 700;
        pixels.insert(pixels.end(), std::min(run, count - pixels.size()),
                      static_cast<std::uint8_t>(random() % 5));
    }
    return pixels;
}

Bytes writtenFrom(const Bitmap& bitmap)
{
    Bytes file;
    EXPECT_TRUE(WriteGifFile(bitmap.info, bitmap.bits, file));
    return file;
}

void expectRoundTrip(int width, int height, const Pixels& pixels)
{
    const Bytes file = writtenFrom(makeBitmap(width, height, pixels));
    const Decoded decoded = decodeImage(file, kHeadBytes);
    EXPECT_EQ(decoded.width, width);
    EXPECT_EQ(decoded.height, height);
    EXPECT_TRUE(decoded.pixels == pixels) << width << "x" << height;
    ASSERT_EQ(file.size(), decoded.bytesUsed + 1);
    EXPECT_EQ(file.back(), std::byte{';'});
}

Bytes encoded(const Bitmap& bitmap, formats::GifImageDescriptor image = {},
              formats::GifScreenDescriptor screen = {1, 1, 0xF7})
{
    Bytes file;
    EXPECT_TRUE(EncodeGifImage(&bitmap.info, bitmap.bits, file, image, screen));
    return file;
}

void expectPlainCodes(int width, int height, const Pixels& pixels)
{
    Bytes plain;
    PlainCoder(plain).encode(pixels);
    const Bytes file = encoded(makeBitmap(width, height, pixels));
    const Bytes codes(file.begin() + 10, file.end());
    EXPECT_TRUE(codes == plain) << width << "x" << height;
}

void expectRefused(const Bitmap& bitmap)
{
    Bytes file{std::byte{1}};
    EXPECT_FALSE(EncodeGifImage(&bitmap.info, bitmap.bits, file, {}, {1, 1, 0xF7}));
    EXPECT_EQ(file.size(), 1U);
}

} // namespace

TEST(GifFile, WritesOnePixelAsOneBlockOfFourBytes)
{
    const Bytes file = writtenFrom(makeBitmap(1, 1, {7}));
    ASSERT_EQ(file.size(), 799U);
    // Clear code, 7 and end code with nine bits each, lowest bit first.
    const Bytes tail{std::byte{8},    std::byte{4},    std::byte{0x00}, std::byte{0x0F},
                     std::byte{0x04}, std::byte{0x04}, std::byte{0},    std::byte{';'}};
    EXPECT_EQ(Bytes(file.end() - 8, file.end()), tail);
}

TEST(GifFile, BeginsWithSignatureScreenAndTable)
{
    const Bytes file = writtenFrom(makeBitmap(300, 2, noise(600, 256, 1)));
    const std::string head =
        std::string("GIF87a") + '\x2C' + '\x01' + '\x02' + '\0' + '\xF7' + '\0' + '\0';
    for (std::size_t i = 0; i < head.size(); ++i) {
        EXPECT_EQ(byteAt(file, i), static_cast<unsigned char>(head[i])) << i;
    }
    for (unsigned i = 0; i < 256; ++i) {
        EXPECT_EQ(byteAt(file, 13 + 3 * i), i);
        EXPECT_EQ(byteAt(file, 14 + 3 * i), i ^ 0x55U);
        EXPECT_EQ(byteAt(file, 15 + 3 * i), 255 - i);
    }
    EXPECT_EQ(byteAt(file, kHeadBytes - 1), unsigned{','});
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(byteAt(file, kHeadBytes + i), 0U);
    }
    EXPECT_EQ(wordAt(file, kHeadBytes + 4), 300);
    EXPECT_EQ(wordAt(file, kHeadBytes + 6), 2);
    EXPECT_EQ(byteAt(file, kHeadBytes + 8), 0U);
}

TEST(GifFile, GivesRandomPicturesBack)
{
    for (const auto& [width, height] : std::vector<std::pair<int, int>>{{1, 1},
                                                                        {1, 2},
                                                                        {1, 500},
                                                                        {2, 1},
                                                                        {2, 333},
                                                                        {3, 7},
                                                                        {4, 100},
                                                                        {5, 5},
                                                                        {5, 1000},
                                                                        {17, 31},
                                                                        {255, 3},
                                                                        {256, 256},
                                                                        {600, 400}}) {
        const auto count = static_cast<std::size_t>(width * height);
        expectRoundTrip(width, height, noise(count, 256, static_cast<unsigned>(count)));
        expectRoundTrip(width, height, drawing(count, static_cast<unsigned>(count)));
    }
}

TEST(GifFile, CutsTheDataIntoFullBlocksAndARest)
{
    const Decoded decoded =
        decodeImage(writtenFrom(makeBitmap(64, 64, noise(4096, 256, 3))), kHeadBytes);
    ASSERT_GT(decoded.blockSizes.size(), 3U);
    for (std::size_t i = 0; i + 1 < decoded.blockSizes.size(); ++i) {
        EXPECT_EQ(decoded.blockSizes[i], 255U);
    }
    EXPECT_LT(decoded.blockSizes.back(), 256U);
}

TEST(GifFile, StartsAnewWhenTheDictionaryIsFull)
{
    // A uniform picture spends ever longer strings: 3839 of them cover over seven million pixels.
    const Pixels uniform(5000 * 2000, 9);
    const Decoded even = decodeImage(writtenFrom(makeBitmap(5000, 2000, uniform)), kHeadBytes);
    EXPECT_EQ(even.widestCode, 12U);
    EXPECT_EQ(even.clearCodes, 2);
    EXPECT_TRUE(even.pixels == uniform);

    const Pixels speckled = noise(200 * 200, 256, 4);
    const Decoded mixed = decodeImage(writtenFrom(makeBitmap(200, 200, speckled)), kHeadBytes);
    EXPECT_EQ(mixed.widestCode, 12U);
    EXPECT_GT(mixed.clearCodes, 5);
    EXPECT_TRUE(mixed.pixels == speckled);
}

TEST(GifEncoder, GivesTheCodesOfAPlainTreeWalk)
{
    unsigned seed = 10;
    for (const auto& [width, height] : std::vector<std::pair<int, int>>{
             {1, 1}, {1, 9}, {2, 1}, {3, 3}, {1, 20000}, {5, 4001}, {640, 480}, {5000, 2}}) {
        const auto count = static_cast<std::size_t>(width * height);
        expectPlainCodes(width, height, Pixels(count, 200));
        expectPlainCodes(width, height, drawing(count, ++seed));
        for (const unsigned colours : {2U, 3U, 16U, 100U, 256U}) {
            expectPlainCodes(width, height, noise(count, colours, ++seed));
        }
    }
}

TEST(GifEncoder, GivesTheCodesOfAPlainTreeWalkWhereverThePictureEnds)
{
    // The last codes fall before, on and behind every change of the code width.
    const Pixels all = noise(6000, 256, 77);
    for (int count = 1; count < 6000; count += count < 300 || count > 3700 ? 1 : 13) {
        expectPlainCodes(count, 1, Pixels(all.begin(), all.begin() + count));
    }
}

TEST(GifEncoder, OrdersInterlacedRowsInFourPasses)
{
    Pixels rows;
    for (int y = 0; y < 20; ++y) {
        rows.insert(rows.end(), 3, static_cast<std::uint8_t>(y));
    }
    const Decoded decoded = decodeImage(encoded(makeBitmap(3, 20, rows), {0, 0, 0x40}), 0);
    const std::vector<int> order{0, 8, 16, 4, 12, 2,  6,  10, 14, 18,
                                 1, 3, 5,  7, 9,  11, 13, 15, 17, 19};
    ASSERT_EQ(decoded.pixels.size(), 60U);
    for (std::size_t i = 0; i < order.size(); ++i) {
        EXPECT_EQ(decoded.pixels[i * 3], order[i]);
    }
}

TEST(GifEncoder, AddsATableWhenTheScreenHasNone)
{
    Bitmap bitmap = makeBitmap(2, 2, {0, 1, 2, 3});
    bitmap.info.usedColours = 4;
    const Bytes file = encoded(bitmap, {}, {2, 2, 0x77});
    EXPECT_EQ(byteAt(file, 8), 0x87U);
    EXPECT_EQ(byteAt(file, 9 + 3 * 3), 3U);
    EXPECT_EQ(byteAt(file, 9 + 3 * 4 + 2), 0U);
    EXPECT_EQ(decodeImage(file, 0).pixels, (Pixels{0, 1, 2, 3}));
    EXPECT_EQ(encoded(bitmap, {0, 0, 0x80}), file);
}

TEST(GifEncoder, RefusesWhatItCantWrite)
{
    const Bitmap good = makeBitmap(4, 4, Pixels(16, 1));
    Bytes file;
    EXPECT_FALSE(EncodeGifImage(nullptr, good.bits, file, {}, {}));
    EXPECT_FALSE(EncodeGifImage(&good.info, {}, file, {}, {}));
    EXPECT_TRUE(file.empty());

    Bitmap bad = good;
    bad.info.headerSize = 12;
    expectRefused(bad);
    bad = good;
    bad.info.compression = 1;
    expectRefused(bad);
    for (const std::uint16_t bits : {1, 4, 16, 24, 32}) {
        bad = good;
        bad.info.bitCount = bits;
        expectRefused(bad);
    }
    for (const std::int32_t size : {-4, 0, 65536}) {
        bad = good;
        bad.info.width = size;
        expectRefused(bad);
        bad = good;
        bad.info.height = size;
        expectRefused(bad);
    }
    bad = good;
    bad.bits.pop_back();
    expectRefused(bad);
}

TEST(GifFile, WritesTheWidestAndTallestPictures)
{
    expectRoundTrip(65535, 1, drawing(65535, 5));
    expectRoundTrip(1, 65535, drawing(65535, 6));
}

TEST(GifFile, LowersADeepBitCountToEight)
{
    Bitmap bitmap = makeBitmap(3, 1, {1, 2, 3});
    bitmap.info.bitCount = 24;
    EXPECT_EQ(decodeImage(writtenFrom(bitmap), kHeadBytes).pixels, (Pixels{1, 2, 3}));
}

TEST(GifFile, HoldsHeaderAndTableOfARefusedPicture)
{
    Bitmap bitmap = makeBitmap(8, 2, Pixels(16, 1));
    bitmap.info.bitCount = 4;
    Bytes file;
    EXPECT_FALSE(WriteGifFile(bitmap.info, bitmap.bits, file));
    ASSERT_EQ(file.size(), 13U + 48U + 1U);
    EXPECT_EQ(byteAt(file, 10), 0xB3U);
    EXPECT_EQ(byteAt(file, 61), unsigned{','});
}

TEST(GifFile, StaysEmptyForAPictureThatGifCantHold)
{
    Bytes file;
    const Bitmap wide = makeBitmap(65536, 1, Pixels(65536, 1));
    EXPECT_FALSE(WriteGifFile(wide.info, wide.bits, file));
    Bitmap empty = makeBitmap(1, 1, {1});
    empty.info.height = 0;
    EXPECT_FALSE(WriteGifFile(empty.info, empty.bits, file));
    const Bitmap small = makeBitmap(1, 1, {1});
    EXPECT_FALSE(WriteGifFile(small.info, {}, file));
    EXPECT_TRUE(file.empty());
}
