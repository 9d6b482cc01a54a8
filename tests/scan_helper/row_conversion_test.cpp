#include "scan_helper/row_conversion.h"

#include <cstring>
#include <gtest/gtest.h>
#include <vector>

using platform::ScanFailure;
using scan_helper::checkedShape;
using scan_helper::convertRow;
using scan_helper::FrameShape;

namespace {

FrameShape shapeOf(SANE_Frame format, SANE_Int bytes, SANE_Int width, SANE_Int rows, SANE_Int depth)
{
    const auto shape = checkedShape({format, SANE_TRUE, bytes, width, rows, depth});
    EXPECT_TRUE(std::holds_alternative<FrameShape>(shape));
    return std::holds_alternative<FrameShape>(shape) ? std::get<FrameShape>(shape) : FrameShape();
}

std::optional<ScanFailure> refusal(SANE_Frame format, SANE_Int bytes, SANE_Int width, SANE_Int rows,
                                   SANE_Int depth)
{
    const auto shape = checkedShape({format, SANE_TRUE, bytes, width, rows, depth});
    const auto* failure = std::get_if<ScanFailure>(&shape);
    return failure != nullptr ? std::optional(*failure) : std::nullopt;
}

std::vector<int> converted(const FrameShape& shape, const std::vector<unsigned char>& scanned)
{
    std::vector<std::byte> row(shape.pictureRowBytes(), std::byte(99));
    convertRow(shape, std::as_bytes(std::span(scanned)), row);
    std::vector<int> numbers;
    for (const std::byte byte : row) {
        numbers.push_back(int(byte));
    }
    return numbers;
}

std::vector<unsigned char> wordBytes(const std::vector<std::uint16_t>& words)
{
    std::vector<unsigned char> bytes(words.size() * 2);
    std::memcpy(bytes.data(), words.data(), bytes.size());
    return bytes;
}

} // namespace

TEST(RowConversion, MakesSetBitsBlackInGrey)
{
    const FrameShape shape = shapeOf(SANE_FRAME_GRAY, 2, 10, 1, 1);
    EXPECT_EQ(converted(shape, {0b10100000, 0b01000000}),
              (std::vector<int>{0, 255, 0, 255, 255, 255, 255, 255, 255, 0}));
}

TEST(RowConversion, MakesSetBitsLightInColours)
{
    const FrameShape shape = shapeOf(SANE_FRAME_RGB, 3, 2, 1, 1);
    EXPECT_EQ(converted(shape, {0b10000000, 0b01000000, 0b11000000}),
              (std::vector<int>{255, 0, 255, 0, 255, 255}));
}

TEST(RowConversion, RoundsSixteenBits)
{
    const FrameShape shape = shapeOf(SANE_FRAME_GRAY, 12, 6, 1, 16);
    EXPECT_EQ(converted(shape, wordBytes({0, 128, 129, 257, 0xFF7F, 0xFFFF})),
              (std::vector<int>{0, 0, 1, 1, 255, 255}));
}

TEST(RowConversion, WritesOneChannelOfThree)
{
    const FrameShape shape = shapeOf(SANE_FRAME_BLUE, 3, 2, 1, 8); // a byte of padding
    EXPECT_EQ(converted(shape, {5, 6, 7}), (std::vector<int>{99, 99, 5, 99, 99, 6}));
}

TEST(RowConversion, KnowsWhatNeedsNone)
{
    EXPECT_TRUE(shapeOf(SANE_FRAME_RGB, 6, 2, 1, 8).isPlain());
    EXPECT_TRUE(shapeOf(SANE_FRAME_GRAY, 2, 2, -1, 8).isPlain());
    EXPECT_FALSE(shapeOf(SANE_FRAME_GRAY, 3, 2, 1, 8).isPlain());
    EXPECT_FALSE(shapeOf(SANE_FRAME_RED, 2, 2, 1, 8).isPlain());
    EXPECT_FALSE(shapeOf(SANE_FRAME_GRAY, 4, 2, 1, 16).isPlain());
}

TEST(RowConversion, RefusesWhatCannotBe)
{
    EXPECT_EQ(refusal(SANE_FRAME_GRAY, 9, 10, 1, 8), ScanFailure::Nonsense);
    EXPECT_EQ(refusal(SANE_FRAME_GRAY, 19, 10, 1, 16), ScanFailure::Nonsense);
    EXPECT_EQ(refusal(SANE_FRAME_RGB, 5, 10, 1, 1), ScanFailure::Nonsense);
    EXPECT_EQ(refusal(SANE_FRAME_GRAY, 10, 0, 1, 8), ScanFailure::Nonsense);
    EXPECT_EQ(refusal(SANE_FRAME_GRAY, -1, 10, 1, 8), ScanFailure::Nonsense);
    EXPECT_EQ(refusal(SANE_FRAME_GRAY, 10, 10, 1, 4), ScanFailure::Unsupported);
    EXPECT_EQ(refusal(SANE_Frame(9), 10, 10, 1, 8), ScanFailure::Unsupported);
    EXPECT_EQ(refusal(SANE_FRAME_GRAY, 100000, 100000, 100000, 8), ScanFailure::TooLarge);
    EXPECT_EQ(refusal(SANE_FRAME_GRAY, 2147483647, 2147483647, -1, 8), ScanFailure::TooLarge);
    EXPECT_EQ(refusal(SANE_FRAME_GRAY, 2147483647, 10, 1, 8), ScanFailure::TooLarge);
}
