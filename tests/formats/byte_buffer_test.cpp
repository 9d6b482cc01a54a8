#include "formats/byte_buffer.h"

#include "formats/resident_memory.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace {

using formats::ByteBuffer;

constexpr std::size_t kMegabyte = std::size_t{1} << 20U;

bool isZero(const ByteBuffer& buffer)
{
    return std::all_of(buffer.begin(), buffer.end(), [](unsigned value) { return value == 0; });
}

} // namespace

TEST(ByteBuffer, ReadsLikeAVector)
{
    ByteBuffer buffer{1, 2, 3};
    EXPECT_EQ(buffer.size(), 3U);
    EXPECT_FALSE(buffer.empty());
    buffer[1] = 9;
    EXPECT_EQ(buffer.data()[1], 9);
    EXPECT_EQ(std::vector<int>(buffer.begin(), buffer.end()), (std::vector<int>{1, 9, 3}));
    EXPECT_TRUE(ByteBuffer().empty());
}

TEST(ByteBuffer, CopiesItsBytes)
{
    const ByteBuffer original{1, 2, 3};
    ByteBuffer copy(original);
    copy[0] = 7;
    EXPECT_EQ(original, (ByteBuffer{1, 2, 3}));
    copy = original;
    EXPECT_EQ(copy, original);
    const ByteBuffer moved(std::move(copy));
    EXPECT_EQ(moved, original);
}

TEST(ByteBuffer, IsZeroAfterEachSizing)
{
    for (const std::size_t size : {std::size_t{10}, 6 * kMegabyte}) {
        ByteBuffer buffer;
        for (int round = 0; round < 2; ++round) {
            ASSERT_TRUE(buffer.resizeZeroed(size));
            ASSERT_EQ(buffer.size(), size);
            EXPECT_TRUE(isZero(buffer));
            std::fill(buffer.begin(), buffer.end(), std::uint8_t{5});
        }
    }
}

TEST(ByteBuffer, ZeroesFromAnOffsetOn)
{
    for (const std::size_t size : {std::size_t{10}, 6 * kMegabyte}) {
        ByteBuffer buffer;
        buffer.assign(size, 5);
        buffer.zeroFrom(3);
        EXPECT_EQ(buffer[2], 5);
        EXPECT_EQ(std::count(buffer.begin(), buffer.end(), 5), 3);
        buffer.zeroFrom(size);
        buffer.zeroFrom(size + 1);
        EXPECT_EQ(std::count(buffer.begin(), buffer.end(), 5), 3);
    }
}

TEST(ByteBuffer, TellsFreshMemoryFromThatOfTheLastPicture)
{
    ByteBuffer buffer;
    ASSERT_TRUE(buffer.resizeForOverwrite(10 * kMegabyte));
    EXPECT_EQ(buffer.memory(), formats::Memory::fresh);
    ASSERT_TRUE(buffer.resizeForOverwrite(9 * kMegabyte));
    EXPECT_EQ(buffer.memory(), formats::Memory::reused);
    ASSERT_TRUE(buffer.resizeForOverwrite(20 * kMegabyte));
    EXPECT_EQ(buffer.memory(), formats::Memory::fresh);
    ASSERT_TRUE(buffer.resizeForOverwrite(20 * kMegabyte));
    ASSERT_TRUE(buffer.resizeZeroed(20 * kMegabyte));
    EXPECT_EQ(buffer.memory(), formats::Memory::fresh);
}

TEST(ByteBuffer, TakesNoMemoryForBytesThatNobodyWrites)
{
    const std::size_t before = residentMegabytes();
    ByteBuffer buffer;
    ASSERT_TRUE(buffer.resizeZeroed(512 * kMegabyte));
    ASSERT_TRUE(buffer.resizeForOverwrite(500 * kMegabyte));
    EXPECT_EQ(buffer[400 * kMegabyte], 0);
    buffer.zeroFrom(0);
    EXPECT_LT(residentMegabytes(), before + 250);
}

TEST(ByteBuffer, GivesTheMemoryOfALargePictureBackForASmallOne)
{
    ByteBuffer buffer;
    // Large enough that an address sanitizer doesn't hold it back either.
    buffer.assign(300 * kMegabyte, 1);
    const std::size_t large = residentMegabytes();
    ASSERT_TRUE(buffer.resizeForOverwrite(kMegabyte));
    EXPECT_LT(residentMegabytes() + 200, large);
}
