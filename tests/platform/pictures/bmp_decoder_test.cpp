#include "platform/pictures/bmp_decoder.h"

#include "platform/pictures/test_images.h"

#include <QBuffer>
#include <gtest/gtest.h>

using platform::decodeBmp;
using platform::readBmpHeader;
using test::expectPixels;
using test::imageOf;

namespace {

struct Fields {
    int width = 0;
    int height = 0;
    int depth = 0;
    int compression = 0;
    int headerBytes = 40;
    int coloursUsed = 0;
    bool tellsOffset = true;
};

void put(QByteArray& bytes, int count, qint64 value)
{
    for (int i = 0; i < count; ++i) {
        bytes.append(char(value >> (8 * i) & 255));
    }
}

// A file of those fields, what stands between header and pixels, and the pixels.
QByteArray fileOf(const Fields& fields, const QByteArray& table, const QByteArray& pixels)
{
    QByteArray bytes("BM");
    const qint64 offset = 14 + fields.headerBytes + table.size();
    put(bytes, 4, offset + pixels.size());
    put(bytes, 4, 0);
    put(bytes, 4, fields.tellsOffset ? offset : 0);
    put(bytes, 4, fields.headerBytes);
    const int sideBytes = fields.headerBytes == 12 ? 2 : 4;
    put(bytes, sideBytes, fields.width);
    put(bytes, sideBytes, fields.height);
    put(bytes, 2, 1);
    put(bytes, 2, fields.depth);
    if (fields.headerBytes >= 40) {
        put(bytes, 4, fields.compression);
        bytes.append(QByteArray(12, '\0'));
        put(bytes, 4, fields.coloursUsed);
        put(bytes, 4, 0);
        bytes.append(QByteArray(fields.headerBytes - 40, '\0'));
    }
    return bytes + table + pixels;
}

QImage decoded(QByteArray file)
{
    const auto header =
        readBmpHeader(std::as_bytes(std::span(file.constData(), std::size_t(file.size()))));
    if (!header) {
        return {};
    }
    QBuffer buffer(&file);
    buffer.open(QIODevice::ReadOnly);
    return decodeBmp(buffer, *header);
}

// Colour i is (i, 2i, 255 - i) in red, green, blue.
QByteArray colourTable(int count, int entryBytes = 4)
{
    QByteArray table;
    for (int i = 0; i < count; ++i) {
        put(table, 1, 255 - i);
        put(table, 1, 2 * i);
        put(table, 1, i);
        put(table, entryBytes - 3, 0);
    }
    return table;
}

QRgb tableColour(int i)
{
    return qRgb(i, 2 * i & 255, 255 - i);
}

QImage rowOfIndices(std::initializer_list<int> indices)
{
    QImage image(int(indices.size()), 1, QImage::Format_RGB32);
    int x = 0;
    for (const int index : indices) {
        image.setPixel(x++, 0, tableColour(index));
    }
    return image;
}

} // namespace

TEST(BmpDecoder, ReadsEveryDepthOfColourTables)
{
    expectPixels(decoded(fileOf({9, 1, 1}, colourTable(2), QByteArray::fromHex("a5800000"))),
                 rowOfIndices({1, 0, 1, 0, 0, 1, 0, 1, 1}));
    expectPixels(decoded(fileOf({3, 1, 4}, colourTable(16), QByteArray::fromHex("12f00000"))),
                 rowOfIndices({1, 2, 15}));
    expectPixels(decoded(fileOf({3, 1, 8}, colourTable(256), QByteArray::fromHex("0005ff00"))),
                 rowOfIndices({0, 5, 255}));
}

TEST(BmpDecoder, ShowsBlackForColoursBeyondTheTable)
{
    const QImage image = decoded(fileOf({.width = 2, .height = 1, .depth = 8, .coloursUsed = 3},
                                        colourTable(3), QByteArray::fromHex("02030000")));
    ASSERT_FALSE(image.isNull());
    EXPECT_EQ(image.pixel(0, 0), tableColour(2));
    EXPECT_EQ(image.pixel(1, 0), qRgb(0, 0, 0));
}

TEST(BmpDecoder, WidensSixteenBitsToAllColours)
{
    const QImage image = decoded(fileOf({4, 1, 16}, {}, QByteArray::fromHex("ff7f007ce0031f00")));
    expectPixels(image, imageOf(4, 1, [](int x, int) {
                     constexpr QRgb kColours[] = {0xFFFFFFFF, 0xFFFF0000, 0xFF00FF00, 0xFF0000FF};
                     return kColours[x];
                 }));
}

TEST(BmpDecoder, HonoursMasks)
{
    const QByteArray masks = QByteArray::fromHex("00f80000e00700001f000000");
    const QImage image = decoded(fileOf({2, 1, 16, 3}, masks, QByteArray::fromHex("fffff007")));
    ASSERT_FALSE(image.isNull());
    EXPECT_EQ(image.pixel(0, 0), qRgb(255, 255, 255));
    EXPECT_EQ(image.pixel(1, 0), qRgb(0, 255, 132));
    const QByteArray swapped = QByteArray::fromHex("ff00000000ff00000000ff00");
    const QImage deep = decoded(fileOf({1, 1, 32, 3}, swapped, QByteArray::fromHex("01020300")));
    ASSERT_FALSE(deep.isNull());
    EXPECT_EQ(deep.pixel(0, 0), qRgb(1, 2, 3));
}

TEST(BmpDecoder, IgnoresTheFourthByte)
{
    expectPixels(decoded(fileOf({2, 1, 32}, {}, QByteArray::fromHex("010203000405067f"))),
                 imageOf(2, 1, [](int x, int) { return x ? qRgb(6, 5, 4) : qRgb(3, 2, 1); }));
}

TEST(BmpDecoder, ReadsRowsFromTheBottomUpOrTopDown)
{
    const QByteArray rows = QByteArray::fromHex("0102030004050600");
    const QImage up = decoded(fileOf({1, 2, 24}, {}, rows));
    const QImage down = decoded(fileOf({1, -2, 24}, {}, rows));
    ASSERT_FALSE(up.isNull() || down.isNull());
    EXPECT_EQ(up.pixel(0, 0), qRgb(6, 5, 4));
    EXPECT_EQ(up.pixel(0, 1), qRgb(3, 2, 1));
    expectPixels(down, up.mirrored(false, true));
}

TEST(BmpDecoder, ReadsTheShortHeader)
{
    expectPixels(decoded(fileOf({.width = 2, .height = 1, .depth = 8, .headerBytes = 12},
                                colourTable(256, 3), QByteArray::fromHex("07090000"))),
                 rowOfIndices({7, 9}));
}

TEST(BmpDecoder, ReadsLongHeadersAndMissingOffsets)
{
    const QByteArray pixels = QByteArray::fromHex("01020000");
    for (const int headerBytes : {40, 52, 56, 64, 108, 124}) {
        expectPixels(decoded(fileOf({.width = 2,
                                     .height = 1,
                                     .depth = 8,
                                     .headerBytes = headerBytes,
                                     .tellsOffset = headerBytes != 108},
                                    colourTable(256), pixels)),
                     rowOfIndices({1, 2}));
    }
}

TEST(BmpDecoder, UnpacksRunsOfBytes)
{
    // Three of colour 5 and the end of the row; then colours 1, 2, 3 as they are, with a filling
    // byte, and the end of the picture.
    const QImage image = decoded(fileOf({4, 2, 8, 1}, colourTable(256),
                                        QByteArray::fromHex("03050000"
                                                            "0003010203000001")));
    ASSERT_FALSE(image.isNull());
    expectPixels(image.copy(0, 1, 4, 1), rowOfIndices({5, 5, 5, 0}));
    expectPixels(image.copy(0, 0, 4, 1), rowOfIndices({1, 2, 3, 0}));
}

TEST(BmpDecoder, UnpacksRunsOfHalfBytes)
{
    const QImage image = decoded(fileOf({5, 2, 4, 2}, colourTable(16),
                                        QByteArray::fromHex("05120000"
                                                            "0003345000000001")));
    ASSERT_FALSE(image.isNull());
    expectPixels(image.copy(0, 1, 5, 1), rowOfIndices({1, 2, 1, 2, 1}));
    expectPixels(image.copy(0, 0, 5, 1), rowOfIndices({3, 4, 5, 0, 0}));
}

TEST(BmpDecoder, FollowsMovesAndFillsWhatIsLeftOut)
{
    const QImage image =
        decoded(fileOf({4, 3, 8, 1}, colourTable(256), QByteArray::fromHex("0109000201020107")));
    ASSERT_FALSE(image.isNull());
    expectPixels(image.copy(0, 2, 4, 1), rowOfIndices({9, 0, 0, 0}));
    expectPixels(image.copy(0, 1, 4, 1), rowOfIndices({0, 0, 0, 0}));
    expectPixels(image.copy(0, 0, 4, 1), rowOfIndices({0, 0, 7, 0}));
}

TEST(BmpDecoder, CutsRunsAtThePicture)
{
    const QImage image = decoded(
        fileOf({2, 1, 8, 1}, colourTable(256), QByteArray::fromHex("ff030002ffff05050000")));
    expectPixels(image, rowOfIndices({3, 3}));
}

TEST(BmpDecoder, RefusesFilesWithoutAllRows)
{
    const QByteArray file = fileOf({3, 2, 24}, {}, QByteArray(24, 'x'));
    EXPECT_FALSE(decoded(file).isNull());
    EXPECT_FALSE(decoded(file.chopped(3)).isNull()); // the last row's filling
    EXPECT_TRUE(decoded(file.chopped(4)).isNull());
    EXPECT_TRUE(decoded(file.left(54)).isNull());
    EXPECT_TRUE(decoded(fileOf({3, 2, 8, 1}, colourTable(256), {})).isNull());
}

TEST(BmpDecoder, RefusesHeadersThatMakeNoSense)
{
    const QByteArray pixels(64, 'x');
    for (const Fields& fields :
         {Fields{0, 1, 24}, Fields{1, 0, 24}, Fields{-4, 1, 24}, Fields{1, -2147483647 - 1, 24},
          Fields{1, 1, 0}, Fields{1, 1, 2}, Fields{1, 1, 64}, Fields{1, 1, 24, 1},
          Fields{1, 1, 8, 2}, Fields{1, 1, 24, 3}, Fields{1, 1, 24, 4}, Fields{1, 1, 24, 5}}) {
        EXPECT_TRUE(decoded(fileOf(fields, {}, pixels)).isNull());
    }
    EXPECT_TRUE(decoded({}).isNull());
}
