#include "base/byte_reader.h"
#include "delivered_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

constexpr std::size_t kFrameBytes = 32 * 24 * 3;

std::string tagAt(const std::vector<std::byte>& bytes, std::size_t offset)
{
    std::string tag;
    for (std::size_t at = offset; at < offset + 4 && at < bytes.size(); ++at) {
        tag += static_cast<char>(bytes[at]);
    }
    return tag;
}

// Offset of the first chunk or list of that name inside a list's items, or 0.
std::size_t find(const std::vector<std::byte>& bytes, std::size_t from, std::size_t end,
                 const std::string& name)
{
    const base::ByteReader reader(bytes);
    while (from + 8 <= end) {
        const std::string tag = tagAt(bytes, from);
        if (tag == name || (tag == "LIST" && tagAt(bytes, from + 8) == name)) {
            return from;
        }
        from += 8 + (reader.little32At(from + 4) + 1U) / 2U * 2U;
    }
    return 0;
}

class ToolbarMovie : public testing::Test {
protected:
    std::size_t endOf(std::size_t chunk) const { return chunk + 8 + reader.little32At(chunk + 4); }

    std::vector<std::byte> bytes = delivered::bytesOf(delivered::picture("AviMovie.avi"));
    base::ByteReader reader{bytes};
};

TEST_F(ToolbarMovie, FillsItsFile)
{
    EXPECT_EQ(tagAt(bytes, 0), "RIFF");
    EXPECT_EQ(tagAt(bytes, 8), "AVI ");
    EXPECT_EQ(endOf(0), bytes.size());
}

TEST_F(ToolbarMovie, TellsSizeSpeedAndLayoutOfItsFrames)
{
    const std::size_t headers = find(bytes, 12, bytes.size(), "hdrl");
    ASSERT_NE(headers, 0U);
    const std::size_t main = find(bytes, headers + 12, endOf(headers), "avih");
    ASSERT_NE(main, 0U);
    EXPECT_EQ(reader.little32At(main + 8), 100000U);
    EXPECT_EQ(reader.little32At(main + 8 + 32), 32U);
    EXPECT_EQ(reader.little32At(main + 8 + 36), 24U);
    const std::size_t stream = find(bytes, headers + 12, endOf(headers), "strl");
    ASSERT_NE(stream, 0U);
    const std::size_t format = find(bytes, stream + 12, endOf(stream), "strf");
    ASSERT_NE(format, 0U);
    EXPECT_EQ(reader.little32At(format + 8 + 4), 32U);
    EXPECT_EQ(reader.little32At(format + 8 + 8), 24U);
    EXPECT_EQ(reader.little16At(format + 8 + 14), 24U);
    EXPECT_EQ(reader.little32At(format + 8 + 16), 0U);
}

TEST_F(ToolbarMovie, IndexesEveryFrame)
{
    const std::size_t movie = find(bytes, 12, bytes.size(), "movi");
    const std::size_t index = find(bytes, 12, bytes.size(), "idx1");
    ASSERT_NE(movie, 0U);
    ASSERT_NE(index, 0U);
    const std::size_t frames = reader.little32At(index + 4) / 16;
    EXPECT_GE(frames, 12U);
    for (std::size_t frame = 0; frame < frames; ++frame) {
        const std::size_t entry = index + 8 + frame * 16;
        const std::size_t chunk = movie + 8 + reader.little32At(entry + 8);
        EXPECT_EQ(tagAt(bytes, chunk), "00db") << frame;
        EXPECT_EQ(reader.little32At(chunk + 4), kFrameBytes) << frame;
        EXPECT_EQ(reader.little32At(entry + 12), kFrameBytes) << frame;
    }
}

TEST_F(ToolbarMovie, MovesFromFrameToFrame)
{
    const std::size_t movie = find(bytes, 12, bytes.size(), "movi");
    ASSERT_NE(movie, 0U);
    const auto first = reader.slice(movie + 12 + 8, kFrameBytes);
    const auto second = reader.slice(movie + 12 + 8 + kFrameBytes + 8, kFrameBytes);
    ASSERT_EQ(second.size(), kFrameBytes);
    EXPECT_FALSE(std::equal(first.begin(), first.end(), second.begin()));
}

} // namespace
