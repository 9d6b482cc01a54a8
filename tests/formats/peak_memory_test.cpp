// What a reader may hold at a time: the file, the picture, and a work area where its format needs
// one. A second copy of any of them would show here.

#include "formats/format.h"
#include "formats/iff_files.h"
#include "formats/pcx_files.h"
#include "formats/psd_files.h"
#include "formats/resident_memory.h"
#include "formats/temporary_file.h"
#include "formats/tga_files.h"
#include "formats/tiff_files.h"

#include <gtest/gtest.h>

namespace {

constexpr std::size_t kMegabyte = std::size_t{1} << 20U;

// 16 million pixels, so 46 MB in colour.
constexpr int kSide = 4000;
constexpr std::size_t kArea = std::size_t{kSide} * kSide;

// A sanitizer keeps notes on an eighth of the memory, and a page may hold more than is asked for.
constexpr std::size_t kSlackMegabytes = 24;

void expectPeak(const FileBytes& bytes, std::size_t pictureBytes, std::size_t workBytes)
{
    const TemporaryFile onDisk(bytes);
    const std::size_t allowed = (bytes.size() + pictureBytes + workBytes) / kMegabyte;
    const std::size_t before = residentMegabytes();
    forgetPeakMemory();
    ASSERT_LE(peakMegabytes(), before + 8);
    RawImage image;
    OpenRawImage(onDisk.path(), image);
    ASSERT_EQ(image.Pixels.size(), pictureBytes);
    EXPECT_GE(peakMegabytes(), before + pictureBytes / kMegabyte);
    EXPECT_LE(peakMegabytes(), before + allowed + kSlackMegabytes);
}

} // namespace

TEST(PeakMemory, HoldsFileAndPictureOnce)
{
    expectPeak(tgaHeader(kSide, kSide).fill(3 * kArea, 7), 3 * kArea, 0);
    expectPeak(tiffPicture(kSide, kSide).pixels(FileBytes().fill(3 * kArea + kSide, 7)).bytes(),
               3 * kArea, 0);
    expectPeak(psdHeader(psdFields(4, kSide, kSide, 0)).fill(4 * kArea, 7), 3 * kArea, 0);
    expectPeak(pcxHeader(pcxFields(kSide, kSide, 3, kSide)).fill(3 * kArea, 7), 3 * kArea, 0);
}

TEST(PeakMemory, HoldsPackedFilesAndTheirPictureOnce)
{
    FileBytes psd = psdHeader(psdFields(3, kSide, kSide, 1)).append(psdLengths(3, kSide));
    FileBytes pcx = pcxHeader(pcxFields(7000, 7000, 1, 7000));
    FileBytes runs;
    for (std::size_t i = 0; i < 3 * kArea / 128; ++i) {
        psd.bytes({129, 7});
        runs.bytes({129, 7});
    }
    for (int i = 0; i < 7000 * 112; ++i) {
        pcx.bytes({0xFF, 7});
    }
    expectPeak(psd, 3 * kArea, 0);
    expectPeak(pcx.append(pcxPalette()), std::size_t{7000} * 7000, 0);
    expectPeak(iffPicture(7000, 6000, runs), std::size_t{7000} * 6000, 0);
}

TEST(PeakMemory, HoldsTheWorkAreaOfLongerPcxLinesOnce)
{
    FileBytes shorter = pcxHeader(pcxFields(kSide, kSide, 3, kSide - 2));
    expectPeak(shorter.fill(3 * kArea - 6 * std::size_t{kSide}, 7), 3 * kArea, 3 * kArea);
}
