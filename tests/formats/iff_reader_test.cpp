#include "formats/iff_reader.h"

#include "formats/iff_files.h"
#include "formats/image_checks.h"

#include <gtest/gtest.h>

namespace {

RawImage decoded(const FileBytes& file)
{
    RawImage image = markedImage();
    formats::readIff(file, image);
    return image;
}

RawImage decodedBody(int width, int height, const FileBytes& data)
{
    return decoded(iffPicture(width, height, data));
}

} // namespace

TEST(IffReader, TakesTheUnpackedBytesForPixels)
{
    const RawImage image = decodedBody(3, 2, FileBytes().bytes({3, 1, 2, 3, 4, 255, 9}));
    expectSize(image, 3, 2, 8);
    expectPixels(image, {1, 2, 3, 4, 9, 9});
}

TEST(IffReader, StoresTheColoursBlueFirst)
{
    const RawImage image = decodedBody(1, 1, FileBytes().bytes({0, 5, 0}));
    ASSERT_EQ(image.Palette.size(), 256U);
    EXPECT_EQ(image.Palette[0], (formats::PaletteEntry{7, 255, 0, 0}));
    EXPECT_EQ(image.Palette[200], (formats::PaletteEntry{7, 55, 200, 0}));
}

TEST(IffReader, ReadsAControlByteOf128As129Literals)
{
    FileBytes data;
    data.byte(128);
    std::vector<unsigned> expected;
    for (unsigned i = 0; i < 129; ++i) {
        data.byte(i + 50);
        expected.push_back(i + 50);
    }
    expectPixels(decodedBody(129, 1, data.byte(0)), expected);
}

TEST(IffReader, RepeatsByTheControlByte)
{
    expectPixels(decodedBody(130, 1, FileBytes().bytes({129, 6, 255, 7, 0})), [] {
        std::vector<unsigned> expected(128, 6);
        expected.insert(expected.end(), 2, 7);
        return expected;
    }());
}

TEST(IffReader, NeverTakesTheLastByteForAControlByte)
{
    expectPixels(decodedBody(2, 1, FileBytes().bytes({0, 5, 0})), {5, 0});
    expectPixels(decodedBody(2, 1, FileBytes().bytes({0, 5, 0, 6})), {5, 6});
}

TEST(IffReader, LeavesTheRecordForOtherPlanesAndCompressions)
{
    const FileBytes rest =
        FileBytes().append(iffColourChunk()).append(iffBodyChunk(FileBytes().bytes({0, 5, 0})));
    for (const unsigned planes : {1U, 4U, 7U, 24U}) {
        expectUntouched(decoded(iffForm().append(iffHeaderChunk(1, 1, planes)).append(rest)));
    }
    for (const unsigned compression : {0U, 2U}) {
        expectUntouched(
            decoded(iffForm().append(iffHeaderChunk(1, 1, 8, compression)).append(rest)));
    }
}

TEST(IffReader, LeavesTheRecordWithoutTheFormTag)
{
    expectUntouched(decoded(iffPicture(1, 1, FileBytes().bytes({0, 5, 0})).set(3, 'm')));
    expectUntouched(decoded(FileBytes().text("FOR")));
    expectUntouched(decoded(FileBytes().text("FORM")));
}

TEST(IffReader, FindsTheHeaderByItsTextWhereverItStands)
{
    const FileBytes rest =
        FileBytes().append(iffColourChunk()).append(iffBodyChunk(FileBytes().bytes({255, 9, 0})));
    FileBytes atEight = FileBytes().text("FORM").big32(0).append(iffHeaderChunk(2, 1)).append(rest);
    expectPixels(decoded(atEight), {9, 9});
    FileBytes later = iffForm().text("ANNO").fill(501, 1).append(iffHeaderChunk(2, 1)).append(rest);
    expectPixels(decoded(later), {9, 9});
    // Before offset 8 nothing is looked for.
    FileBytes early = FileBytes().text("FORM").text("BMHD").append(rest);
    expectUntouched(decoded(early));
}

TEST(IffReader, TakesTheFirstTextThatLooksLikeATag)
{
    const FileBytes rest =
        FileBytes().append(iffColourChunk()).append(iffBodyChunk(FileBytes().bytes({255, 9, 0})));
    // A note holds the tag, so planes and compression are read from the note's letters.
    FileBytes note = iffForm().text("ANNO").big32(40).text("see BMHD").fill(32, 'x');
    expectUntouched(decoded(note.append(iffHeaderChunk(2, 1)).append(rest)));
    // Colours that spell the body's tag are no body, because the search begins behind them.
    FileBytes colours = iffColourChunk();
    colours.set(8, 'B').set(9, 'O').set(10, 'D').set(11, 'Y');
    expectPixels(decoded(iffForm()
                             .append(iffHeaderChunk(2, 1))
                             .append(colours)
                             .append(iffBodyChunk(FileBytes().bytes({255, 9, 0})))),
                 {9, 9});
}

TEST(IffReader, LooksForTheColoursFromTheFilesStart)
{
    FileBytes file = iffForm().append(iffColourChunk()).append(iffHeaderChunk(2, 1));
    const RawImage image = decoded(file.append(iffBodyChunk(FileBytes().bytes({255, 9, 0}))));
    EXPECT_EQ(image.Palette[200], (formats::PaletteEntry{7, 55, 200, 0}));
    expectPixels(image, {9, 9});
}

TEST(IffReader, ShowsACompletePictureThoughAChunkFollowsItsBody)
{
    FileBytes file = iffPicture(2, 2, FileBytes().bytes({253, 9}));
    expectPixels(decoded(file.text("ANNO").big32(4).text("note")), {9, 9, 9, 9});
}

TEST(IffReader, ShiftsTheRowsOfAnOddWidthByTheirPadBytes)
{
    expectPixels(decodedBody(3, 2, FileBytes().bytes({7, 1, 2, 3, 0, 4, 5, 6, 0})),
                 {1, 2, 3, 0, 4, 5});
}

TEST(IffReader, LeavesTheRecordForSizesBeyond16Bits)
{
    expectUntouched(decodedBody(0x8000, 1, FileBytes().bytes({255, 9, 0})));
    expectUntouched(decodedBody(1, 0xFFFF, FileBytes().bytes({255, 9, 0})));
    expectSize(decodedBody(0x7FFF, 1, FileBytes().bytes({255, 9, 0})), 0x7FFF, 1, 8);
}

TEST(IffReader, IsBlackWithoutColours)
{
    const RawImage image = decoded(iffForm()
                                       .append(iffHeaderChunk(2, 1))
                                       .append(iffBodyChunk(FileBytes().bytes({255, 9, 0}))));
    expectSize(image, 2, 1, 8);
    EXPECT_EQ(image.Palette, std::vector<formats::PaletteEntry>(256));
    expectPixels(image, {0, 0});
}

TEST(IffReader, IsBlackWithoutABody)
{
    const FileBytes file = iffForm().append(iffHeaderChunk(2, 1)).append(iffColourChunk());
    for (const unsigned behind : {0U, 5U, 6U, 1000U}) {
        const RawImage image = decoded(FileBytes(file).fill(behind, 1));
        expectSize(image, 2, 1, 8);
        EXPECT_EQ(image.Palette.size(), 256U);
        expectPixels(image, {0, 0});
    }
}

TEST(IffReader, TakesFewerThanFiveBytesBehindTheColoursForTheBody)
{
    const FileBytes file = iffForm().append(iffHeaderChunk(3, 1)).append(iffColourChunk());
    expectPixels(decoded(FileBytes(file).byte(0)), {0, 0, 0});
    expectPixels(decoded(FileBytes(file).bytes({0, 5})), {5, 0, 0});
    expectPixels(decoded(FileBytes(file).bytes({254, 6, 0})), {6, 6, 6});
    expectPixels(decoded(FileBytes(file).bytes({2, 5, 6, 7})), {5, 6, 7});
    expectPixels(decoded(FileBytes(file).bytes({2, 5, 6, 7, 0})), {0, 0, 0});
}

TEST(IffReader, FindsNoBodyInTheLastFourBytes)
{
    const FileBytes file = iffForm().append(iffHeaderChunk(2, 1)).append(iffColourChunk());
    expectPixels(decoded(FileBytes(file).text("BODY")), {'O', 'D'});
    expectPixels(decoded(FileBytes(file).byte(0).text("BODY")), {0, 0});
    expectPixels(decoded(FileBytes(file).text("BODY").byte(0)), {0, 0});
}

TEST(IffReader, IsBlackWithAnEmptyBody)
{
    expectPixels(decodedBody(2, 1, FileBytes()), {0, 0});
    expectPixels(decodedBody(2, 1, FileBytes().byte(255)), {0, 0});
}

TEST(IffReader, StopsWhereTheBodyEndsInsideAPacket)
{
    expectPixels(decodedBody(4, 1, FileBytes().bytes({0, 1, 5, 2, 3})), {1, 2, 3, 0});
}

TEST(IffReader, EmptiesThePixelsOfAPictureWithoutWidth)
{
    const RawImage image = decodedBody(0, 3, FileBytes().bytes({255, 9, 0}));
    expectSize(image, 0, 3, 8);
    EXPECT_TRUE(image.Pixels.empty());
}

TEST(IffReader, HasNoPixelsOfAPictureBeyondTheLargestArray)
{
    const RawImage image = decodedBody(32767, 32767, FileBytes().bytes({255, 9, 0}));
    expectSize(image, 32767, 32767, 8);
    EXPECT_TRUE(image.Pixels.empty());
}
