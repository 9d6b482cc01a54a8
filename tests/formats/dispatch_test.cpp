#include "formats/format.h"

#include "formats/hooks.h"
#include "formats/iff_files.h"
#include "formats/image_checks.h"
#include "formats/pcx_files.h"
#include "formats/psd_files.h"
#include "formats/resident_memory.h"
#include "formats/temporary_file.h"
#include "formats/tga_files.h"
#include "formats/tiff_files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <sys/stat.h>

namespace {

FileBytes onePixelPcx(unsigned value)
{
    return pcxHeader(pcxFields(1, 1, 3, 1)).append(FileBytes().bytes({value, value, value}));
}

RawImage opened(const FileBytes& file)
{
    const TemporaryFile onDisk(file);
    RawImage image = markedImage();
    OpenRawImage(onDisk.path(), image);
    return image;
}

} // namespace

TEST(OpenRawImage, ReadsAFileByItsContent)
{
    expectPixels(opened(onePixelPcx(42)), {42, 42, 42});
}

TEST(OpenRawImage, HandsEachFormatToItsReader)
{
    const FileBytes pixels = FileBytes().bytes({1, 2, 3, 4, 5, 6});
    expectPixels(opened(psdHeader(psdFields(4, 1, 1, 0)).append(pixels)), {3, 2, 1});
    expectPixels(opened(tgaHeader(2, 1).append(pixels)), {1, 2, 3, 4, 5, 6});
    expectPixels(opened(tiffPicture(2, 1).pixels(pixels).bytes()), {3, 2, 1, 6, 5, 4});
    expectPixels(opened(tiffPicture(2, 1, ByteOrder::big, kLong).pixels(pixels).bytes()),
                 {3, 2, 1, 6, 5, 4});
    expectPixels(opened(onePixelPcx(42)), {42, 42, 42});
    expectPixels(opened(iffPicture(2, 1, FileBytes().bytes({255, 9, 0}))), {9, 9});
}

TEST(OpenRawImage, AsksTheTgaReaderBeforeTheTiffAndPcxReaders)
{
    for (const char* start : {"II", "MM", "\x0A\x05"}) {
        FileBytes file = tgaHeader(1, 1).bytes({1, 2, 3});
        file.set(0, static_cast<unsigned char>(start[0]));
        file.set(1, static_cast<unsigned char>(start[1]));
        const RawImage image = opened(file);
        expectSize(image, 1, 1, 24);
        expectPixels(image, {1, 2, 3});
    }
}

TEST(OpenRawImage, KnowsNoPackedTga)
{
    expectUntouched(opened(tgaHeader(1, 1).set(2, 10).bytes({0x80, 1, 2, 3})));
}

TEST(OpenRawImage, IgnoresTheFilesName)
{
    const TemporaryFile onDisk(psdHeader(psdFields(4, 1, 1, 0)).bytes({1, 2, 3, 4}));
    const std::string renamed = onDisk.path() + ".tif";
    std::filesystem::create_symlink(onDisk.path(), renamed);
    RawImage image;
    OpenRawImage(renamed, image);
    std::filesystem::remove(renamed);
    expectPixels(image, {3, 2, 1});
}

TEST(OpenRawImage, GivesTheShortestPcxToItsReader)
{
    const RawImage image = opened(FileBytes().bytes({10, 0, 0}));
    expectSize(image, 1, 1, 0);
    expectOldPixels(image);
}

TEST(OpenRawImage, ReadsTheNextFileAfterOneThatRanOverItsPicture)
{
    const TemporaryFile aborted(iffPicture(1, 1, FileBytes().bytes({129, 9, 129, 9, 0})));
    const TemporaryFile next(onePixelPcx(42));
    RawImage image;
    OpenRawImage(aborted.path(), image);
    expectPixels(image, {9});
    OpenRawImage(next.path(), image);
    expectPixels(image, {42, 42, 42});
}

TEST(OpenRawImage, ReadsAFileWhileTheFailureOfAnotherIsReported)
{
    const TemporaryFile failing(psdHeader(psdFields(3, 1, 1, 0)).bytes({1, 2, 3}));
    const TemporaryFile other(onePixelPcx(42));
    RawImage inner;
    formats::setHooks({[&](const char*) { OpenRawImage(other.path(), inner); }, {}});
    RawImage outer;
    OpenRawImage(failing.path(), outer);
    formats::setHooks({});
    expectPixels(inner, {42, 42, 42});
    expectPixels(outer, {3, 2, 1});
}

TEST(OpenRawImage, LeavesTheRecordForAFileThatNoReaderKnows)
{
    expectUntouched(opened(FileBytes()));
    expectUntouched(opened(FileBytes().bytes({1, 2, 3})));
    expectUntouched(opened(FileBytes().text("GIF89a").fill(100, 0)));
}

TEST(OpenRawImage, LeavesTheRecordForAPathThatNamesNoFile)
{
    RawImage image = markedImage();
    OpenRawImage("/nowhere/at/all.pcx", image);
    OpenRawImage("", image);
    expectUntouched(image);
}

TEST(OpenRawImage, LeavesTheRecordForWhatIsNoRegularFile)
{
    const TemporaryFile neighbour((FileBytes()));
    const std::string pipe = neighbour.path() + ".pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    RawImage image = markedImage();
    OpenRawImage(pipe, image);
    OpenRawImage(std::filesystem::temp_directory_path().string(), image);
    OpenRawImage("/dev/zero", image);
    std::filesystem::remove(pipe);
    expectUntouched(image);
}

TEST(OpenRawImage, FollowsALinkToAFile)
{
    const TemporaryFile target(onePixelPcx(42));
    const std::string link = target.path() + ".link";
    std::filesystem::create_symlink(target.path(), link);
    RawImage image = markedImage();
    OpenRawImage(link, image);
    std::filesystem::remove(link);
    expectPixels(image, {42, 42, 42});
}

TEST(OpenRawImage, ReadsOneFileAfterAnotherIntoTheSameRecord)
{
    const TemporaryFile first(onePixelPcx(1));
    const TemporaryFile second(onePixelPcx(2));
    RawImage image;
    OpenRawImage(first.path(), image);
    OpenRawImage(second.path(), image);
    expectPixels(image, {2, 2, 2});
}

TEST(OpenRawImage, TakesLittleMemoryForLargePicturesThatAreNotThere)
{
    const std::size_t before = residentMegabytes();
    const FileBytes one = FileBytes().bytes({1, 1, 1});
    for (const FileBytes& file :
         {tgaHeader(16000, 11000).append(one), tiffPicture(16000, 11000).pixels(one).bytes(),
          pcxHeader(pcxFields(16000, 11000, 3, 10000)).append(one),
          pcxHeader(pcxFields(8000, 22000, 3, 8000)).append(one),
          pcxHeader(pcxFields(16000, 32000, 1, 16000)).append(one).append(pcxPalette()),
          psdHeader(psdFields(3, 10000, 13000, 1)).append(psdLengths(3, 13000)).append(one),
          iffPicture(16000, 32000, one)}) {
        const RawImage image = opened(file);
        EXPECT_GT(image.Pixels.size(), std::size_t{350} * 1000 * 1000);
        EXPECT_LT(residentMegabytes(), before + 250);
    }
}

TEST(ReadPicture, TellsWhetherAReaderTookTheFile)
{
    const auto isTaken = [](const FileBytes& file) {
        const TemporaryFile onDisk(file);
        RawImage image;
        return formats::readPicture(onDisk.path(), image);
    };
    const FileBytes pixels = FileBytes().bytes({1, 2, 3, 4, 5, 6});
    EXPECT_TRUE(isTaken(psdHeader(psdFields(4, 1, 1, 0)).append(pixels)));
    EXPECT_TRUE(isTaken(psdHeader(psdFields(3, 1, 1, 0)))); // without its planes: black
    EXPECT_TRUE(isTaken(tgaHeader(2, 1).append(pixels)));
    EXPECT_TRUE(isTaken(tiffPicture(2, 1).pixels(pixels).bytes()));
    EXPECT_TRUE(isTaken(onePixelPcx(42)));
    EXPECT_TRUE(isTaken(iffPicture(2, 1, FileBytes().bytes({255, 9, 0}))));

    EXPECT_FALSE(isTaken(FileBytes().text("GIF89a").fill(100, 0)));
    EXPECT_FALSE(isTaken(psdHeader(psdFields(17, 1, 1, 0)).append(pixels)));
    EXPECT_FALSE(isTaken(tgaHeader(-2, 1).append(pixels)));
    EXPECT_FALSE(isTaken(tiffPicture(0, 1).pixels(pixels).bytes()));
    EXPECT_FALSE(isTaken(pcxHeader(pcxFields(2, 1, 1, 2)).append(pixels))); // no palette
    EXPECT_FALSE(isTaken(FileBytes().text("FORM").fill(20, 0)));
    RawImage image;
    EXPECT_FALSE(formats::readPicture("/nowhere/at/all.pcx", image));
}
