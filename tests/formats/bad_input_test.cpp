// Files that nobody may read, that change while they are read, or that are too large.

#include "formats/format.h"
#include "formats/hook_recorder.h"
#include "formats/iff_files.h"
#include "formats/iff_reader.h"
#include "formats/image_checks.h"
#include "formats/mapped_file.h"
#include "formats/pcx_files.h"
#include "formats/pcx_reader.h"
#include "formats/psd_files.h"
#include "formats/psd_reader.h"
#include "formats/resident_memory.h"
#include "formats/temporary_file.h"
#include "formats/tga_files.h"
#include "formats/tga_reader.h"
#include "formats/tiff_files.h"
#include "formats/tiff_reader.h"
#include "support/ordinary_user.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sys/stat.h>

namespace {

constexpr std::uintmax_t kBeyondLargestArray = (std::uintmax_t{512} << 20U) + 4096;

struct Sample {
    FileBytes file;
    bool (*read)(std::span<const std::byte> file, RawImage& image);
};

FileBytes manyBytes()
{
    FileBytes bytes;
    for (unsigned i = 0; i < 120000; ++i) {
        bytes.byte(i % 191 + 1);
    }
    return bytes;
}

std::vector<Sample> samples()
{
    const FileBytes bytes = manyBytes();
    return {{tgaHeader(200, 200).append(bytes), formats::readTga},
            {tiffPicture(200, 200).pixels(bytes).bytes(), formats::readTiff},
            {psdHeader(psdFields(3, 200, 200, 0)).append(bytes), formats::readPsd},
            {psdHeader(psdFields(3, 200, 200, 1)).append(bytes), formats::readPsd},
            {pcxHeader(pcxFields(200, 200, 3, 200)).append(bytes), formats::readPcx},
            {pcxHeader(pcxFields(300, 300, 1, 300)).append(bytes).append(pcxPalette()),
             formats::readPcx},
            {iffPicture(300, 300, bytes), formats::readIff}};
}

FileBytes zeroedFrom(FileBytes file, std::size_t offset)
{
    const std::size_t count = file.size() - offset;
    return file.cutTo(offset).fill(count, 0);
}

} // namespace

TEST(BadInput, LeavesTheRecordForAFileThatTheUserMayNotRead)
{
    const TemporaryFile secret(samples()[0].file);
    ASSERT_EQ(::chmod(secret.path().c_str(), 0), 0);
    RawImage image = markedImage();
    {
        const support::OrdinaryUser user;
        OpenRawImage(secret.path(), image);
    }
    expectUntouched(image);
}

TEST(BadInput, ReadsZerosFromAFileThatHasShrunkSinceItWasOpened)
{
    for (const auto& [file, read] : samples()) {
        for (const std::size_t rest : {std::size_t{5000}, std::size_t{50000}}) {
            const TemporaryFile onDisk(file);
            const auto mapped = formats::MappedFile::open(onDisk.path());
            ASSERT_TRUE(mapped);
            std::filesystem::resize_file(onDisk.path(), rest);
            RawImage image;
            read(mapped->bytes(), image);
            RawImage expected;
            read(zeroedFrom(file, rest), expected);
            EXPECT_GT(image.Width, 0);
            EXPECT_EQ(image.Pixels, expected.Pixels);
        }
    }
}

TEST(BadInput, ShowsTheRowsThatAFileHadBeforeItShrank)
{
    const TemporaryFile onDisk(psdHeader(psdFields(4, 1000, 1000, 0)).fill(4000000, 9));
    HookRecorder recorder;
    formats::setHooks({{}, [&](double fraction) {
                           recorder.fractions.push_back(fraction);
                           std::filesystem::resize_file(onDisk.path(), 100);
                       }});
    RawImage image;
    OpenRawImage(onDisk.path(), image);
    expectSize(image, 1000, 1000, 24);
    ASSERT_EQ(image.Pixels.size(), 3000000U);
    EXPECT_EQ(image.Pixels[0], 9);
    EXPECT_EQ(image.Pixels[2999999], 0);
    EXPECT_EQ(recorder.fractions.size(), 1000U);
}

TEST(BadInput, StopsAtAFileThatNoArrayHolds)
{
    const HookRecorder recorder;
    const TemporaryFile pcx(pcxHeader(pcxFields(3, 2, 3, 3)).fill(18, 1));
    std::filesystem::resize_file(pcx.path(), kBeyondLargestArray);
    RawImage image = markedImage();
    OpenRawImage(pcx.path(), image);
    expectSize(image, 3, 2, 24);
    expectOldPixels(image);
    EXPECT_TRUE(recorder.messages.empty());
}

// Such a file takes four kilobytes of a disk and would be searched through for seconds.
TEST(BadInput, SearchesNoFileThatIsTooLargeForAnyPicture)
{
    const TemporaryFile whole(iffPicture(3, 2, FileBytes().bytes({251, 9, 0})));
    const TemporaryFile head(iffForm());
    for (const TemporaryFile* file : {&whole, &head}) {
        std::filesystem::resize_file(file->path(), kBeyondLargestArray);
        const auto mapped = formats::MappedFile::open(file->path());
        ASSERT_TRUE(mapped);
        const std::size_t before = residentMegabytes();
        RawImage image = markedImage();
        formats::readIff(mapped->bytes(), image);
        expectUntouched(image);
        EXPECT_LT(residentMegabytes(), before + 16);
    }
}

TEST(BadInput, ReportsPlanesThatNoArrayHolds)
{
    const HookRecorder recorder;
    const TemporaryFile psd(psdHeader(psdFields(4, 2, 1, 0)).fill(8, 1));
    std::filesystem::resize_file(psd.path(), kBeyondLargestArray);
    RawImage image = markedImage();
    OpenRawImage(psd.path(), image);
    expectSize(image, 2, 1, 24);
    expectPixels(image, {0, 0, 0, 0, 0, 0});
    EXPECT_EQ(recorder.messages, std::vector<std::string>{"Error Open!"});
}

TEST(BadInput, LeavesTheRecordForAFileBeyondAllPositions)
{
    const TemporaryFile tga(tgaHeader(1, 1).bytes({1, 2, 3}));
    std::filesystem::resize_file(tga.path(), std::uintmax_t{1} << 31U);
    RawImage image = markedImage();
    OpenRawImage(tga.path(), image);
    expectUntouched(image);
    std::filesystem::resize_file(tga.path(), (std::uintmax_t{1} << 31U) - 1);
    OpenRawImage(tga.path(), image);
    expectPixels(image, {1, 2, 3});
}

TEST(BadInput, TakesThePixelsOfFilesOfAnySizeThatAreReadInPlace)
{
    const TemporaryFile tga(tgaHeader(1, 1).bytes({1, 2, 3}));
    const TemporaryFile tiff(
        tiffPicture(2, 1).pixels(FileBytes().bytes({1, 2, 3, 4, 5, 6})).bytes());
    for (const std::string& path : {tga.path(), tiff.path()}) {
        std::filesystem::resize_file(path, kBeyondLargestArray);
    }
    RawImage image;
    OpenRawImage(tga.path(), image);
    expectPixels(image, {1, 2, 3});
    OpenRawImage(tiff.path(), image);
    expectPixels(image, {3, 2, 1, 6, 5, 4});
}
