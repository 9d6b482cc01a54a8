#include "formats/hook_recorder.h"
#include "formats/iff_reader.h"
#include "formats/literal_readers.h"
#include "formats/pcx_reader.h"
#include "formats/psd_reader.h"
#include "formats/random_files.h"
#include "formats/tga_reader.h"
#include "formats/tiff_reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

namespace {

constexpr int kFiles = 10000;

// Above this many rows the progress comes in steps.
constexpr int kRowsReportedEach = 32768;

struct Pair {
    const char* name;
    RandomFile file;
    bool (*read)(std::span<const std::byte> file, RawImage& image);
    void (*literal)(std::span<const std::byte> file, literal::Image& image);
};

std::ostream& operator<<(std::ostream& out, const Pair& pair)
{
    return out << pair.name;
}

class LiteralAgreement : public testing::TestWithParam<Pair> {};

bool samePixels(const RawImage& image, const literal::Image& expected)
{
    return std::equal(image.Pixels.begin(), image.Pixels.end(), expected.Pixels.begin(),
                      expected.Pixels.end());
}

void expectSame(const RawImage& image, const literal::Image& expected)
{
    ASSERT_EQ(image.Width, expected.Width);
    ASSERT_EQ(image.Height, expected.Height);
    ASSERT_EQ(int{image.BitDepth}, int{expected.BitDepth});
    ASSERT_TRUE(image.Palette == expected.Palette);
    ASSERT_EQ(image.Pixels.size(), expected.Pixels.size());
    ASSERT_TRUE(samePixels(image, expected));
}

void expectSameReports(const HookRecorder& recorder, const literal::Image& expected)
{
    ASSERT_EQ(recorder.messages, expected.messages);
    if (expected.Height <= kRowsReportedEach) {
        ASSERT_EQ(recorder.fractions, expected.fractions);
    }
}

// Reads the file into both records, which hold what the files before it have left.
void readBoth(const Pair& pair, std::span<const std::byte> file, RawImage& image,
              literal::Image& expected)
{
    const HookRecorder recorder;
    expected.messages.clear();
    expected.fractions.clear();
    pair.read(file, image);
    pair.literal(file, expected);
    ASSERT_NO_FATAL_FAILURE(expectSame(image, expected));
    ASSERT_NO_FATAL_FAILURE(expectSameReports(recorder, expected));
}

} // namespace

TEST_P(LiteralAgreement, HoldsForWellFormedAndDamagedFiles)
{
    std::mt19937 engine(20);
    RawImage kept;
    literal::Image keptExpected;
    for (int i = 0; i < kFiles; ++i) {
        SCOPED_TRACE(i);
        const FileBytes file = GetParam().file(engine);
        RawImage fresh;
        literal::Image freshExpected;
        ASSERT_NO_FATAL_FAILURE(readBoth(GetParam(), file, fresh, freshExpected));
        ASSERT_NO_FATAL_FAILURE(readBoth(GetParam(), file, kept, keptExpected));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Readers, LiteralAgreement,
    testing::Values(Pair{"Pcx", randomPcx, formats::readPcx, literal::readPcx},
                    Pair{"Tga", randomTga, formats::readTga, literal::readTga},
                    Pair{"Tiff", randomTiff, formats::readTiff, literal::readTiff},
                    Pair{"Psd", randomPsd, formats::readPsd, literal::readPsd},
                    Pair{"Iff", randomIff, formats::readIff, literal::readIff}),
    [](const testing::TestParamInfo<Pair>& pair) { return std::string(pair.param.name); });
