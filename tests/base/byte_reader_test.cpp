#include "base/byte_reader.h"

#include <array>
#include <gtest/gtest.h>

namespace {

constexpr std::array kBytes{std::byte{0x12}, std::byte{0x34}, std::byte{0x56}, std::byte{0x78}};

} // namespace

TEST(ByteReader, ReadsBothByteOrders)
{
    const base::ByteReader reader(kBytes);
    EXPECT_EQ(reader.big16At(0), 0x1234);
    EXPECT_EQ(reader.little16At(0), 0x3412);
    EXPECT_EQ(reader.big32At(0), 0x12345678U);
    EXPECT_EQ(reader.little32At(0), 0x78563412U);
}

TEST(ByteReader, GivesZerosBeyondTheEnd)
{
    const base::ByteReader reader(kBytes);
    EXPECT_EQ(reader.byteAt(4), 0);
    EXPECT_EQ(reader.big16At(3), 0x7800);
    EXPECT_EQ(reader.little32At(2), 0x7856U);
    EXPECT_EQ(reader.big32At(SIZE_MAX), 0U);
}

TEST(ByteReader, CutsSlicesAtTheEnd)
{
    const base::ByteReader reader(kBytes);
    EXPECT_EQ(reader.slice(1, 2).size(), 2U);
    EXPECT_EQ(reader.slice(3, 10).size(), 1U);
    EXPECT_TRUE(reader.slice(4, 1).empty());
    EXPECT_EQ(reader.from(1).size(), 3U);
}
