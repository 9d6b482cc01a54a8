// Small files of other programs. Under right/, the picture up to the first dot of a file's name
// stands beside it as a PPM that its colours must equal; files under refused/ must leave the record
// alone; those under odd/ come out oddly or are damaged. All of them must agree with the literal
// readers. New files are picked up by themselves.

#include "formats/format.h"
#include "formats/image_checks.h"
#include "formats/literal_readers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path kCorpus = VISTARA_FORMATS_CORPUS;

struct CorpusFile {
    fs::path path;
};

std::ostream& operator<<(std::ostream& out, const CorpusFile& file)
{
    return out << file.path.filename().string();
}

std::vector<CorpusFile> filesOf(const fs::path& folder)
{
    std::vector<CorpusFile> files;
    for (const auto& entry : fs::directory_iterator(kCorpus / folder)) {
        if (entry.path().extension() != ".ppm") {
            files.push_back({entry.path()});
        }
    }
    std::sort(files.begin(), files.end(), [](const CorpusFile& left, const CorpusFile& right) {
        return left.path < right.path;
    });
    return files;
}

std::vector<CorpusFile> allFiles()
{
    std::vector<CorpusFile> files;
    for (const char* folder : {"odd", "refused", "right"}) {
        const auto more = filesOf(folder);
        files.insert(files.end(), more.begin(), more.end());
    }
    return files;
}

std::string nameOf(const testing::TestParamInfo<CorpusFile>& file)
{
    std::string name = file.param.path.filename().string();
    std::replace_if(
        name.begin(), name.end(),
        [](char letter) { return std::isalnum(static_cast<unsigned char>(letter)) == 0; }, '_');
    return name;
}

struct Colours {
    int width = 0;
    int height = 0;

    // Red, green, blue for each pixel.
    std::string bytes;
};

Colours readPpm(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    std::string magic;
    int highest = 0;
    Colours colours;
    in >> magic >> colours.width >> colours.height >> highest;
    in.get();
    colours.bytes.assign(std::istreambuf_iterator<char>(in), {});
    return colours;
}

Colours coloursOf(const RawImage& image)
{
    Colours colours{image.Width, image.Height, {}};
    const auto add = [&colours](unsigned red, unsigned green, unsigned blue) {
        for (const unsigned value : {red, green, blue}) {
            colours.bytes += static_cast<char>(value);
        }
    };
    if (image.BitDepth == 8) {
        for (const unsigned index : image.Pixels) {
            const auto& entry = image.Palette.at(index);
            add(entry.red, entry.green, entry.blue);
        }
        return colours;
    }
    for (std::size_t i = 0; i + 2 < image.Pixels.size(); i += 3) {
        add(image.Pixels[i + 2], image.Pixels[i + 1], image.Pixels[i]);
    }
    return colours;
}

std::vector<std::byte> bytesOf(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(in), {});
    std::vector<std::byte> bytes(text.size());
    std::transform(text.begin(), text.end(), bytes.begin(),
                   [](char letter) { return static_cast<std::byte>(letter); });
    return bytes;
}

class RightFiles : public testing::TestWithParam<CorpusFile> {};
class RefusedFiles : public testing::TestWithParam<CorpusFile> {};
class AllFiles : public testing::TestWithParam<CorpusFile> {};

} // namespace

TEST_P(RightFiles, ShowTheColoursOfTheirPicture)
{
    const std::string file = GetParam().path.filename().string();
    const Colours expected =
        readPpm(GetParam().path.parent_path() / (file.substr(0, file.find('.')) + ".ppm"));
    ASSERT_GT(expected.width, 0);
    RawImage image;
    OpenRawImage(GetParam().path.string(), image);
    const Colours colours = coloursOf(image);
    EXPECT_EQ(colours.width, expected.width);
    EXPECT_EQ(colours.height, expected.height);
    EXPECT_TRUE(colours.bytes == expected.bytes);
}

TEST_P(RefusedFiles, LeaveTheRecordAlone)
{
    RawImage image = markedImage();
    OpenRawImage(GetParam().path.string(), image);
    expectUntouched(image);
}

TEST_P(AllFiles, AgreeWithTheLiteralReaders)
{
    RawImage image;
    literal::Image expected;
    OpenRawImage(GetParam().path.string(), image);
    literal::read(bytesOf(GetParam().path), expected);
    EXPECT_EQ(image.Width, expected.Width);
    EXPECT_EQ(image.Height, expected.Height);
    EXPECT_EQ(int{image.BitDepth}, int{expected.BitDepth});
    EXPECT_TRUE(image.Palette == expected.Palette);
    EXPECT_TRUE(std::equal(image.Pixels.begin(), image.Pixels.end(), expected.Pixels.begin(),
                           expected.Pixels.end()));
}

INSTANTIATE_TEST_SUITE_P(Corpus, RightFiles, testing::ValuesIn(filesOf("right")), nameOf);
INSTANTIATE_TEST_SUITE_P(Corpus, RefusedFiles, testing::ValuesIn(filesOf("refused")), nameOf);
INSTANTIATE_TEST_SUITE_P(Corpus, AllFiles, testing::ValuesIn(allFiles()), nameOf);
