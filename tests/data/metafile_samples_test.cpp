#include "base/byte_reader.h"
#include "delivered_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

constexpr std::size_t kPlaceableHead = 22;
constexpr std::size_t kWmfHead = 18;

TEST(MetafileSamples, TheOldMetafilesHeadChecks)
{
    const auto bytes = delivered::bytesOf(delivered::sample("Sailing boat.wmf"));
    const base::ByteReader reader(bytes);
    EXPECT_EQ(reader.little32At(0), 0x9AC6CDD7U);
    unsigned check = 0;
    for (std::size_t at = 0; at < kPlaceableHead; at += 2) {
        check ^= reader.little16At(at);
    }
    EXPECT_EQ(check, 0U);
    EXPECT_EQ(reader.little32At(kPlaceableHead + 6) * 2, bytes.size() - kPlaceableHead);
}

TEST(MetafileSamples, TheOldMetafilesRecordsLeadToItsEnd)
{
    const auto bytes = delivered::bytesOf(delivered::sample("Sailing boat.wmf"));
    const base::ByteReader reader(bytes);
    std::size_t at = kPlaceableHead + kWmfHead;
    std::uint32_t longest = 0;
    unsigned function = 1;
    while (at + 6 <= bytes.size() && reader.little32At(at) >= 3) {
        longest = std::max(longest, reader.little32At(at));
        function = reader.little16At(at + 4);
        at += reader.little32At(at) * std::size_t{2};
    }
    EXPECT_EQ(at, bytes.size());
    EXPECT_EQ(function, 0U);
    EXPECT_EQ(longest, reader.little32At(kPlaceableHead + 12));
}

TEST(MetafileSamples, TheEnhancedMetafilesRecordsLeadToItsEnd)
{
    constexpr std::uint32_t kEnd = 14;
    const auto bytes = delivered::bytesOf(delivered::sample("Up in balloons.emf"));
    const base::ByteReader reader(bytes);
    EXPECT_EQ(reader.little32At(0), 1U);
    EXPECT_EQ(reader.little32At(40), 0x464D4520U);
    EXPECT_EQ(reader.little32At(48), bytes.size());
    std::size_t at = 0;
    std::uint32_t records = 0;
    std::uint32_t type = 0;
    while (at + 8 <= bytes.size() && reader.little32At(at + 4) >= 8) {
        type = reader.little32At(at);
        at += reader.little32At(at + 4);
        ++records;
    }
    EXPECT_EQ(at, bytes.size());
    EXPECT_EQ(type, kEnd);
    EXPECT_EQ(records, reader.little32At(52));
}

} // namespace
