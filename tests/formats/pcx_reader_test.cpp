#include "formats/pcx_reader.h"

#include "formats/image_checks.h"
#include "formats/pcx_files.h"

#include <gtest/gtest.h>

namespace {

FileBytes onePlane(int width, int height, int bytesPerLine, const FileBytes& data)
{
    return pcxHeader(pcxFields(width, height, 1, bytesPerLine)).append(data).append(pcxPalette());
}

FileBytes threePlanes(int width, int height, int bytesPerLine, const FileBytes& data)
{
    return pcxHeader(pcxFields(width, height, 3, bytesPerLine)).append(data);
}

RawImage decoded(const FileBytes& file)
{
    RawImage image = markedImage();
    formats::readPcx(file, image);
    return image;
}

} // namespace

TEST(PcxReader, ReadsOnePlaneWithItsPalette)
{
    const RawImage image =
        decoded(onePlane(4, 2, 4, FileBytes().bytes({1, 2, 3, 4, 0xC3, 9, 0xC1, 0xC5})));
    expectSize(image, 4, 2, 8);
    expectPixels(image, {1, 2, 3, 4, 9, 9, 9, 0xC5});
    ASSERT_EQ(image.Palette.size(), 256U);
    EXPECT_EQ(image.Palette[0], (formats::PaletteEntry{7, 255, 0, 0}));
    EXPECT_EQ(image.Palette[200], (formats::PaletteEntry{7, 55, 200, 0}));
}

TEST(PcxReader, TakesTheOriginOffTheSize)
{
    PcxFields fields = pcxFields(2, 1, 1, 2);
    fields.xMin = -3;
    fields.xMax = -2;
    fields.yMin = 5;
    fields.yMax = 5;
    const RawImage image =
        decoded(pcxHeader(fields).append(FileBytes().bytes({1, 2})).append(pcxPalette()));
    expectSize(image, 2, 1, 8);
    expectPixels(image, {1, 2});
}

TEST(PcxReader, KeepsThePixelsWithoutThePaletteMarker)
{
    FileBytes file = onePlane(4, 1, 4, FileBytes().bytes({1, 2, 3, 4}));
    file.set(file.size() - 769, 13);
    const RawImage image = decoded(file);
    expectSize(image, 4, 1, 8);
    EXPECT_TRUE(image.Palette.empty());
    expectOldPixels(image);
}

TEST(PcxReader, KeepsThePixelsOfAFileTooShortForAPalette)
{
    const RawImage image =
        decoded(pcxHeader(pcxFields(4, 1, 1, 4)).append(FileBytes().bytes({1, 2, 3, 4})));
    expectSize(image, 4, 1, 8);
    EXPECT_TRUE(image.Palette.empty());
    expectOldPixels(image);
}

TEST(PcxReader, CutsARunThatOvershootsTheLine)
{
    const RawImage image = decoded(
        onePlane(4, 2, 4, FileBytes().bytes({1, 0xFF, 5, 0xC1, 6, 0xC1, 7, 0xC1, 8, 0xC1, 9})));
    expectPixels(image, {1, 5, 5, 5, 6, 7, 8, 9});
}

TEST(PcxReader, CutsToTheWidthWhatOvershootsThePaddedLine)
{
    // At column 1 the run is cut to three bytes, one less than the line has left.
    const RawImage image =
        decoded(onePlane(4, 2, 5, FileBytes().bytes({1, 0xFF, 5, 77, 6, 7, 8, 9, 77})));
    expectPixels(image, {1, 5, 5, 5, 6, 7, 8, 9});
}

TEST(PcxReader, StepsBackToTheWidthFromThePadding)
{
    // At column 4 of a line of five bytes the picture is three wide: the run is cut to minus one.
    const RawImage image = decoded(
        onePlane(3, 2, 5, FileBytes().bytes({1, 2, 3, 50, 0xC2, 51, 52, 53, 4, 5, 6, 60, 61})));
    expectPixels(image, {1, 2, 3, 4, 5, 6});
}

TEST(PcxReader, WritesNothingForACountOfZero)
{
    const RawImage image = decoded(onePlane(3, 1, 3, FileBytes().bytes({1, 0xC0, 9, 2, 3})));
    expectPixels(image, {1, 2, 3});
}

TEST(PcxReader, CompletesAnOddWidthThoughItsLastPadByteLiesOutside)
{
    const RawImage image =
        decoded(onePlane(3, 2, 4, FileBytes().bytes({1, 2, 3, 90, 4, 5, 6, 91})));
    expectSize(image, 3, 2, 8);
    expectPixels(image, {1, 2, 3, 4, 5, 6});
}

TEST(PcxReader, KeepsThePaddingOfALineWhereTheNextOneBreaksOff)
{
    // All data stands in the palette: the first line of 380 bytes, then ten bytes that write one.
    FileBytes file = pcxHeader(pcxFields(300, 2, 1, 380)).byte(12);
    for (int i = 0; i < 372; ++i) {
        file.bytes({0xC0, 0});
    }
    for (unsigned value = 1; value <= 6; ++value) {
        file.bytes({0xFF, value});
    }
    file.bytes({0xC1, 7, 33, 0xC0, 0, 0xC0, 0, 0xC0, 0, 0xC0, 0, 0xC0});
    std::vector<unsigned> expected(600, 0);
    for (unsigned i = 0; i < 380; ++i) {
        expected[i] = i == 0 ? 12 : (i - 1) / 63 + 1;
    }
    expected[300] = 33;
    expectPixels(decoded(file), expected);
}

TEST(PcxReader, LeavesTheRestOfEachRowBlackWhenLinesAreShort)
{
    const RawImage image = decoded(onePlane(4, 2, 2, FileBytes().bytes({1, 2, 3, 4})));
    expectPixels(image, {1, 2, 0, 0, 3, 4, 0, 0});
}

TEST(PcxReader, StaysBlackBehindTheEndOfTheData)
{
    // The palette belongs to the data, so some rows are made of it.
    const RawImage image = decoded(onePlane(40, 1000, 40, FileBytes().bytes({1})));
    ASSERT_EQ(image.Pixels.size(), 40000U);
    EXPECT_EQ(image.Pixels[0], 1);
    EXPECT_EQ(image.Pixels[1], 12);
    EXPECT_EQ(image.Pixels[39999], 0);
}

TEST(PcxReader, IgnoresWhatTheHeaderSaysOfBitsAndEncoding)
{
    FileBytes file = onePlane(2, 1, 2, FileBytes().bytes({1, 2}));
    for (const unsigned bits : {1U, 8U, 200U}) {
        file.set(1, bits).set(2, bits).set(3, bits);
        expectPixels(decoded(file), {1, 2});
    }
}

TEST(PcxReader, MergesThreePlanesOfEachLine)
{
    const RawImage image = decoded(
        threePlanes(2, 2, 2, FileBytes().bytes({1, 2, 11, 12, 21, 22, 0xC2, 3, 0xC2, 13, 23, 24})));
    expectSize(image, 2, 2, 24);
    EXPECT_TRUE(image.Palette.empty());
    expectPixels(image, {21, 11, 1, 22, 12, 2, 23, 13, 3, 24, 13, 3});
}

TEST(PcxReader, LetsRunsCrossLinesOfThreePlanes)
{
    const RawImage image = decoded(threePlanes(2, 2, 2, FileBytes().bytes({0xCC, 5})));
    expectPixels(image, std::vector<unsigned>(12, 5));
}

TEST(PcxReader, ShowsAThreePlaneFileWithATrailingByteBlack)
{
    FileBytes data = FileBytes().bytes({0xCC, 5});
    expectPixels(decoded(threePlanes(2, 2, 2, data)), std::vector<unsigned>(12, 5));
    data.byte(1);
    const RawImage image = decoded(threePlanes(2, 2, 2, data));
    expectSize(image, 2, 2, 24);
    expectPixels(image, std::vector<unsigned>(12, 0));
}

TEST(PcxReader, FitsOneByteOfARunBehindThePlanes)
{
    // The run gives 13 bytes, and no zero byte is decoded behind it: the marker took it.
    expectPixels(decoded(threePlanes(2, 2, 2, FileBytes().bytes({0xCC, 5, 0xC1}))),
                 std::vector<unsigned>(12, 5));
    expectPixels(decoded(threePlanes(2, 2, 2, FileBytes().bytes({0xCC, 5, 0xC2}))),
                 std::vector<unsigned>(12, 0));
}

TEST(PcxReader, ShowsThreePlanesWithLongerLinesBlack)
{
    const RawImage image = decoded(threePlanes(1, 2, 2, FileBytes().fill(12, 5)));
    expectSize(image, 1, 2, 24);
    expectPixels(image, std::vector<unsigned>(6, 0));
}

TEST(PcxReader, MergesAShortStreamOfLongerLinesUntilItLeavesTheWorkArray)
{
    // Of the work array's seven bytes, the second row's blue would be the eleventh.
    const RawImage image = decoded(threePlanes(1, 2, 2, FileBytes().bytes({1, 2, 3, 4, 5})));
    expectPixels(image, {5, 3, 1, 0, 0, 0});
}

TEST(PcxReader, MergesOverlappingLinesWhenTheyAreShorterThanTheWidth)
{
    const RawImage image = decoded(threePlanes(2, 1, 1, FileBytes().bytes({1, 2, 3, 4})));
    expectPixels(image, {3, 2, 1, 4, 3, 2});
    const RawImage repeated = decoded(threePlanes(1, 2, 0, FileBytes().bytes({6})));
    expectPixels(repeated, std::vector<unsigned>(6, 6));
}

TEST(PcxReader, LeavesTheRestOfAShortThreePlaneFileBlack)
{
    const RawImage image = decoded(threePlanes(2, 2, 2, FileBytes().bytes({1, 2, 3, 4, 5, 6, 7})));
    expectPixels(image, {5, 3, 1, 6, 4, 2, 0, 0, 7, 0, 0, 0});
}

TEST(PcxReader, GivesARunAtTheVeryEndTheValueZero)
{
    const RawImage image = decoded(threePlanes(1, 1, 1, FileBytes().bytes({7, 7, 0xC1})));
    expectPixels(image, {0, 7, 7});
}

TEST(PcxReader, GivesFourPlanesTheDepth32AndThreeBytesAPixel)
{
    const RawImage image =
        decoded(pcxHeader(pcxFields(1, 1, 4, 1)).append(FileBytes().bytes({1, 2, 3})));
    expectSize(image, 1, 1, 32);
    expectPixels(image, {3, 2, 1});
}

TEST(PcxReader, GivesNoPlanesTheDepthZero)
{
    const RawImage image =
        decoded(pcxHeader(pcxFields(1, 1, 0, 1)).append(FileBytes().bytes({1, 2, 3})));
    expectSize(image, 1, 1, 0);
    expectPixels(image, {3, 2, 1});
}

TEST(PcxReader, StopsAtADepthThatDoesNotFitAByte)
{
    const RawImage image = decoded(pcxHeader(pcxFields(2, 3, 32, 2)).fill(20, 1));
    expectSize(image, 2, 3, 99);
    EXPECT_EQ(image.Palette.size(), 1U);
    expectOldPixels(image);
}

TEST(PcxReader, StopsAtAWidthBeyond16Bits)
{
    PcxFields fields = pcxFields(2, 2, 3, 2);
    fields.xMin = -30000;
    fields.xMax = 30000;
    expectUntouched(decoded(pcxHeader(fields).fill(20, 1)));
    fields.xMin = 0;
    fields.xMax = 32767;
    expectUntouched(decoded(pcxHeader(fields).fill(20, 1)));
}

TEST(PcxReader, SetsTheWidthBeforeItStopsAtTheHeight)
{
    PcxFields fields = pcxFields(2, 2, 3, 2);
    fields.yMax = 32767;
    const RawImage image = decoded(pcxHeader(fields).fill(20, 1));
    expectSize(image, 2, 55, 99);
    EXPECT_EQ(image.Palette.size(), 1U);
    expectOldPixels(image);
}

TEST(PcxReader, KeepsThePixelsWhenOneSideIsNegative)
{
    for (const unsigned planes : {1U, 3U}) {
        const RawImage image = decoded(pcxHeader(pcxFields(-2, 3, planes, 2))
                                           .append(FileBytes().fill(20, 1))
                                           .append(pcxPalette()));
        expectSize(image, -2, 3, static_cast<int>(planes * 8));
        expectOldPixels(image);
    }
}

TEST(PcxReader, GivesTwoNegativeSidesABlackPicture)
{
    for (const unsigned planes : {1U, 3U}) {
        const RawImage image = decoded(pcxHeader(pcxFields(-2, -3, planes, 2))
                                           .append(FileBytes().fill(6, 1))
                                           .append(pcxPalette()));
        expectSize(image, -2, -3, static_cast<int>(planes * 8));
        expectPixels(image, std::vector<unsigned>(planes * 6, 0));
    }
}

TEST(PcxReader, EmptiesThePixelsOfAPictureWithoutWidth)
{
    for (const unsigned planes : {1U, 3U}) {
        const RawImage image = decoded(pcxHeader(pcxFields(0, 3, planes, 2))
                                           .append(FileBytes().fill(6, 1))
                                           .append(pcxPalette()));
        expectSize(image, 0, 3, static_cast<int>(planes * 8));
        EXPECT_TRUE(image.Pixels.empty());
    }
}

TEST(PcxReader, LeavesOnePlaneBlackWhenLinesHaveNoBytes)
{
    for (const int bytesPerLine : {0, -4}) {
        const RawImage image = decoded(onePlane(2, 2, bytesPerLine, FileBytes().fill(6, 1)));
        expectPixels(image, {0, 0, 0, 0});
    }
}

TEST(PcxReader, LeavesThreePlanesBlackWhenLinesAreNegative)
{
    const RawImage image = decoded(threePlanes(2, 2, -2, FileBytes().fill(12, 1)));
    expectPixels(image, std::vector<unsigned>(12, 0));
}

TEST(PcxReader, KeepsThePixelsWhenALineOfAllPlanesIsBeyond16Bits)
{
    const RawImage image = decoded(threePlanes(2, 2, 10923, FileBytes().fill(12, 1)));
    expectSize(image, 2, 2, 24);
    expectOldPixels(image);
    const RawImage fits = decoded(threePlanes(2, 2, 10922, FileBytes().fill(12, 1)));
    expectPixels(fits, std::vector<unsigned>(12, 0));
}

TEST(PcxReader, KeepsThePixelsOfAPictureBeyondTheLargestArray)
{
    for (const unsigned planes : {1U, 3U}) {
        const RawImage image = decoded(pcxHeader(pcxFields(32767, 32767, planes, 2))
                                           .append(FileBytes().fill(6, 1))
                                           .append(pcxPalette()));
        expectSize(image, 32767, 32767, static_cast<int>(planes * 8));
        expectOldPixels(image);
    }
}

TEST(PcxReader, ReadsMissingHeaderBytesAsZeros)
{
    // Both ends are 0, so the picture is one pixel wide and high, of no planes.
    const RawImage image = decoded(FileBytes().byte(10));
    expectSize(image, 1, 1, 0);
    EXPECT_TRUE(image.Palette.empty());
    expectOldPixels(image);
}

TEST(PcxReader, RefusesAnotherManufacturer)
{
    FileBytes file = onePlane(2, 1, 2, FileBytes().bytes({1, 2}));
    expectUntouched(decoded(file.set(0, 11)));
    expectUntouched(decoded(FileBytes()));
}

TEST(PcxReader, DecodesWideRowsInBulkAsItDoesNarrowOnes)
{
    // 300 pixels a row: literals with single runs among them, long runs, and a run at the end.
    FileBytes data;
    std::vector<unsigned> expected;
    for (unsigned row = 0; row < 3; ++row) {
        for (unsigned i = 0; i < 100; ++i) {
            const unsigned value = (i * 7 + row) % 256;
            if (value >= 0xC0) {
                data.byte(0xC1);
            }
            data.byte(value);
            expected.push_back(value);
        }
        data.bytes({0xFF, 0xD0 + row, 0xFF, 1, 0xC0, 2, 0xFF, 3, 0xCB, 0xFE});
        expected.insert(expected.end(), 63, 0xD0 + row);
        expected.insert(expected.end(), 63, 1);
        expected.insert(expected.end(), 63, 3);
        expected.insert(expected.end(), 11, 0xFE);
    }
    expectPixels(decoded(onePlane(300, 3, 300, data)), expected);
}
