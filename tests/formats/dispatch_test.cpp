#include "formats/format.h"
#include "formats/image_checks.h"
#include "formats/pcx_files.h"
#include "formats/temporary_file.h"

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
