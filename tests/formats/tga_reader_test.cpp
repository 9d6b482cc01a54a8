#include "formats/tga_reader.h"

#include "formats/image_checks.h"
#include "formats/tga_files.h"

#include <gtest/gtest.h>

namespace {

RawImage decoded(const FileBytes& file)
{
    RawImage image = markedImage();
    formats::readTga(file, image);
    return image;
}

FileBytes twoByTwo()
{
    return tgaHeader(2, 2).bytes({1, 2, 3, 4, 5, 6, 11, 12, 13, 14, 15, 16});
}

const std::vector<unsigned> kTwoByTwo{11, 12, 13, 14, 15, 16, 1, 2, 3, 4, 5, 6};

} // namespace

TEST(TgaReader, PutsTheFirstRowOfTheFileAtTheBottom)
{
    const RawImage image = decoded(twoByTwo());
    expectSize(image, 2, 2, 24);
    EXPECT_TRUE(image.Palette.empty());
    expectPixels(image, kTwoByTwo);
}

TEST(TgaReader, IgnoresTheOriginBit)
{
    expectPixels(decoded(twoByTwo().set(17, 0x20)), kTwoByTwo);
}

TEST(TgaReader, TakesThePixelsFromBehindTheHeaderDespiteAnIdField)
{
    // The file does have the field, so the pixels come displaced.
    FileBytes file = tgaHeader(1, 2).set(0, 2).text("ID").bytes({1, 2, 3, 4, 5, 6});
    expectPixels(decoded(file), {2, 3, 4, 'I', 'D', 1});
}

TEST(TgaReader, IgnoresTheColourMap)
{
    expectPixels(decoded(twoByTwo().set(1, 1).set(5, 1).set(7, 24)), kTwoByTwo);
}

TEST(TgaReader, RefusesOtherTypesAndDepths)
{
    expectUntouched(decoded(twoByTwo().set(2, 10)));
    expectUntouched(decoded(twoByTwo().set(2, 1)));
    expectUntouched(decoded(twoByTwo().set(16, 32)));
    expectUntouched(decoded(FileBytes().bytes({0, 0, 2})));
}

TEST(TgaReader, IgnoresWhatFollowsThePixels)
{
    expectPixels(decoded(twoByTwo().text("TRUEVISION-XFILE.")), kTwoByTwo);
}

TEST(TgaReader, LeavesBlackWhatTheFileLacks)
{
    RawImage image = decoded(twoByTwo().cutTo(18 + 8));
    expectPixels(image, {11, 12, 0, 0, 0, 0, 1, 2, 3, 4, 5, 6});
    // The same record again: nothing of its former pixels remains.
    formats::readTga(twoByTwo().cutTo(18 + 1), image);
    expectPixels(image, {0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0});
    formats::readTga(twoByTwo().cutTo(17), image);
    expectPixels(image, std::vector<unsigned>(12, 0));
}

TEST(TgaReader, ReadsACutHeaderAsZeros)
{
    const RawImage image = decoded(FileBytes().bytes({0, 0, 2}).fill(13, 0).byte(24));
    expectSize(image, 0, 0, 24);
    EXPECT_TRUE(image.Pixels.empty());
}

TEST(TgaReader, EmptiesThePixelsOfAPictureWithoutWidthOrHeight)
{
    const RawImage narrow = decoded(tgaHeader(0, 5).fill(30, 1));
    expectSize(narrow, 0, 5, 24);
    EXPECT_TRUE(narrow.Pixels.empty());
    const RawImage flat = decoded(tgaHeader(5, 0).fill(30, 1));
    expectSize(flat, 5, 0, 24);
    EXPECT_TRUE(flat.Pixels.empty());
}

TEST(TgaReader, KeepsThePixelsWhenOneSideIsNegative)
{
    const RawImage image = decoded(tgaHeader(-2, 3).fill(30, 1));
    expectSize(image, -2, 3, 24);
    EXPECT_TRUE(image.Palette.empty());
    expectOldPixels(image);
    expectOldPixels(decoded(tgaHeader(2, -3).fill(30, 1)));
}

TEST(TgaReader, GivesTwoNegativeSidesABlackPicture)
{
    const RawImage image = decoded(tgaHeader(-2, -3).fill(30, 1));
    expectSize(image, -2, -3, 24);
    expectPixels(image, std::vector<unsigned>(18, 0));
}

TEST(TgaReader, KeepsThePixelsOfAPictureBeyondTheLargestArray)
{
    // The second size is beyond 32 bits as well.
    for (const int height : {6000, 32767}) {
        const RawImage image = decoded(tgaHeader(32767, height).fill(30, 1));
        expectSize(image, 32767, height, 24);
        expectOldPixels(image);
    }
}
