#include "formats/tiff_reader.h"

#include "formats/image_checks.h"
#include "formats/tiff_files.h"

#include <gtest/gtest.h>

namespace {

RawImage decoded(const FileBytes& file)
{
    RawImage image = markedImage();
    formats::readTiff(file, image);
    return image;
}

RawImage decoded(const TiffFile& file)
{
    return decoded(file.bytes());
}

FileBytes countingBytes(unsigned count)
{
    FileBytes bytes;
    for (unsigned i = 1; i <= count; ++i) {
        bytes.byte(i);
    }
    return bytes;
}

} // namespace

TEST(TiffReader, ReadsAWidthOfTwoFromTheStripsFirstByte)
{
    const RawImage image = decoded(tiffPicture(2, 2).pixels(countingBytes(12)));
    expectSize(image, 2, 2, 24);
    EXPECT_TRUE(image.Palette.empty());
    expectPixels(image, {3, 2, 1, 6, 5, 4, 9, 8, 7, 12, 11, 10});
}

TEST(TiffReader, DisplacesOtherWidthsByTheWidthLessTwo)
{
    expectPixels(decoded(tiffPicture(4, 1).pixels(countingBytes(20))),
                 {5, 4, 3, 8, 7, 6, 11, 10, 9, 14, 13, 12});
    // The directory ends in four zero bytes, so a width of one begins with a zero.
    expectPixels(decoded(tiffPicture(1, 1).pixels(countingBytes(20))), {2, 1, 0});
}

TEST(TiffReader, ReadsNumbersOfBothTypesAlike)
{
    expectPixels(decoded(tiffPicture(2, 1, ByteOrder::little, kLong).pixels(countingBytes(6))),
                 {3, 2, 1, 6, 5, 4});
    expectPixels(decoded(tiffPicture(2, 1, ByteOrder::big, kLong).pixels(countingBytes(6))),
                 {3, 2, 1, 6, 5, 4});
}

TEST(TiffReader, RefusesBigEndianFilesWithShortBitsPerSample)
{
    expectUntouched(decoded(tiffPicture(2, 1, ByteOrder::big, kShort).pixels(countingBytes(6))));
}

TEST(TiffReader, ReadsBigEndianShortValues)
{
    TiffFile file(ByteOrder::big);
    file.entry(256, kShort, 1, 2).entry(257, kShort, 1, 1).entry(258, kLong, 3, 100);
    file.entry(273, kShort, 1, TiffFile::pixelOffset(4)).pixels(countingBytes(6));
    expectPixels(decoded(file), {3, 2, 1, 6, 5, 4});
}

TEST(TiffReader, ReadsTheDirectoryBehindTheHeaderWhateverItsOffset)
{
    FileBytes file = tiffPicture(2, 1).pixels(countingBytes(6)).bytes();
    file.set(4, 99).set(7, 0x80);
    expectPixels(decoded(file), {3, 2, 1, 6, 5, 4});
}

TEST(TiffReader, LeavesARecordAloneWhoseDirectoryStandsAtTheFilesEnd)
{
    // What follows the header are pixels: no entries at all, so no size.
    FileBytes file;
    file.text("II").little16(42).little32(20).fill(12, 0);
    file.append(FileBytes(tiffPicture(2, 2).bytes()));
    expectUntouched(decoded(file));
}

TEST(TiffReader, RefusesEntriesThatItCannotHandle)
{
    struct Case {
        int tag;
        int count;
        int value;
    };
    for (const Case& refused : {Case{255, 1, 2}, Case{258, 1, 8}, Case{258, 4, 8}, Case{259, 1, 5},
                                Case{259, 1, 2}, Case{284, 1, 2}}) {
        SCOPED_TRACE(refused.tag);
        TiffFile file = tiffPicture(2, 1);
        file.entry(refused.tag, kShort, refused.count, refused.value);
        expectUntouched(decoded(file.pixels(countingBytes(30))));
    }
}

TEST(TiffReader, ReadsOverOtherTags)
{
    TiffFile file;
    file.entry(254, kLong, 1, 0).entry(256, kShort, 1, 2).entry(257, kShort, 1, 1);
    file.entry(255, kShort, 1, 1).entry(278, kShort, 1, 1).entry(279, kLong, 1, 6);
    file.entry(273, kShort, 1, TiffFile::pixelOffset(7)).pixels(countingBytes(6));
    expectPixels(decoded(file), {3, 2, 1, 6, 5, 4});
}

TEST(TiffReader, ShowsAnUnknownPhotometricInterpretationBlack)
{
    for (const int unknown : {0, 5, 8}) {
        TiffFile file = tiffPicture(2, 1);
        file.entry(262, kShort, 1, unknown).entry(262, kShort, 1, 2);
        const RawImage image = decoded(file.pixels(countingBytes(30)));
        expectSize(image, 2, 1, 24);
        EXPECT_TRUE(image.Palette.empty());
        expectPixels(image, {0, 0, 0, 0, 0, 0});
    }
}

TEST(TiffReader, ReadsGreyAndPaletteInterpretationsAsColour)
{
    for (const int known : {1, 2, 3}) {
        TiffFile file(ByteOrder::little);
        file.entry(256, kShort, 1, 2).entry(257, kShort, 1, 1).entry(258, kShort, 3, 9);
        file.entry(262, kShort, 1, known).entry(273, kShort, 1, TiffFile::pixelOffset(5));
        expectPixels(decoded(file.pixels(countingBytes(6))), {3, 2, 1, 6, 5, 4});
    }
}

TEST(TiffReader, LeavesTheRecordWhenANumberIsBeyond16Bits)
{
    struct Case {
        int type;
        std::int64_t count;
        std::int64_t value;
    };
    for (const Case& beyond :
         {Case{kLong, 1, 32768}, Case{kLong, 32768, 1}, Case{kLong, 1, -32769},
          Case{kShort, 1, 32768}, Case{kShort, 32768, 1}, Case{kShort, 1, 65535}}) {
        TiffFile file = tiffPicture(2, 1);
        file.entry(279, beyond.type, beyond.count, beyond.value);
        expectUntouched(decoded(file.pixels(countingBytes(30))));
    }
    for (const Case& within : {Case{kLong, 1, 32767}, Case{kLong, 32767, 1}, Case{kLong, 1, -32768},
                               Case{kLong, -1, 1}, Case{kShort, 32767, 32767}}) {
        TiffFile file = tiffPicture(2, 1);
        file.entry(279, within.type, within.count, within.value);
        expectSize(decoded(file.pixels(countingBytes(30))), 2, 1, 24);
    }
}

TEST(TiffReader, LeavesTheRecordWithoutWidthOrHeight)
{
    expectUntouched(decoded(tiffPicture(0, 3).pixels(countingBytes(30))));
    expectUntouched(decoded(tiffPicture(3, 0).pixels(countingBytes(30))));
    expectUntouched(decoded(TiffFile()));
}

TEST(TiffReader, KeepsThePixelsWhenOneSideIsNegative)
{
    const RawImage image = decoded(tiffPicture(-2, 3, ByteOrder::little, kLong));
    expectSize(image, -2, 3, 24);
    EXPECT_TRUE(image.Palette.empty());
    expectOldPixels(image);
}

TEST(TiffReader, GivesTwoNegativeSidesABlackPicture)
{
    const RawImage image =
        decoded(tiffPicture(-2, -3, ByteOrder::little, kLong).pixels(countingBytes(30)));
    expectSize(image, -2, -3, 24);
    expectPixels(image, std::vector<unsigned>(18, 0));
}

TEST(TiffReader, LeavesThePictureBlackWhenItsFirstByteLiesBeforeTheFile)
{
    // A strip that isn't named has the offset 0, and a width of one steps before it.
    TiffFile outside;
    outside.entry(256, kShort, 1, 1).entry(257, kShort, 1, 1);
    expectPixels(decoded(outside), {0, 0, 0});
    TiffFile inside;
    inside.entry(256, kShort, 1, 2).entry(257, kShort, 1, 1);
    expectPixels(decoded(inside), {42, 'I', 'I', 0, 8, 0}); // the header's own bytes
    TiffFile negative = tiffPicture(2, 1, ByteOrder::little, kLong);
    negative.entry(273, kLong, 1, -1);
    expectPixels(decoded(negative.pixels(countingBytes(6))), {0, 0, 0, 0, 0, 0});
}

TEST(TiffReader, LeavesBlackWhatTheFileLacks)
{
    for (const unsigned present : {0U, 1U, 2U, 3U, 5U}) {
        std::vector<unsigned> expected{3, 2, 1, 6, 5, 4};
        for (unsigned& value : expected) {
            value = value <= present ? value : 0;
        }
        expectPixels(decoded(tiffPicture(2, 1).pixels(countingBytes(present))), expected);
    }
}

TEST(TiffReader, KeepsThePixelsOfAPictureBeyondTheLargestArray)
{
    for (const int height : {6000, 32767}) {
        const RawImage image = decoded(tiffPicture(32767, height));
        expectSize(image, 32767, height, 24);
        expectOldPixels(image);
    }
}

TEST(TiffReader, RefusesAnotherMagicNumberAndCutHeaders)
{
    FileBytes file = tiffPicture(2, 1).pixels(countingBytes(6)).bytes();
    expectUntouched(decoded(FileBytes(file).set(2, 43)));
    expectUntouched(decoded(FileBytes(file).set(1, 'M')));
    expectUntouched(decoded(FileBytes().text("II")));
    expectUntouched(decoded(FileBytes(file).cutTo(9)));
}

TEST(TiffReader, CountsMoreThan32767Entries)
{
    // The last of 40000 entries holds the height.
    TiffFile file;
    file.entry(256, kShort, 1, 2);
    for (int i = 0; i < 39998; ++i) {
        file.entry(1, kShort, 1, 1);
    }
    file.entry(257, kShort, 1, 1);
    expectSize(decoded(file), 2, 1, 24);
}

TEST(TiffReader, LoopsOverEntriesBehindTheFilesEnd)
{
    FileBytes file = tiffPicture(2, 1).pixels(FileBytes()).bytes();
    file.set(8, 0xFF).set(9, 0xFF);
    expectSize(decoded(file), 2, 1, 24);
}
