#include "platform/pictures/spare_blocks.h"

#include "platform/pictures/large_image.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <gtest/gtest.h>
#include <vector>

using platform::SpareBlocks;

namespace {

constexpr std::size_t kPage = SpareBlocks::kLargePage;
constexpr std::size_t kMegabyte = std::size_t{1} << 20U;

void fill(const SpareBlocks::Block& block)
{
    std::fill_n(static_cast<std::uint8_t*>(block.memory), block.bytes, std::uint8_t{1});
}

} // namespace

TEST(SpareBlocks, BeginWithALargePageAndHoldWholeOnes)
{
    SpareBlocks blocks;
    const SpareBlocks::Block block = blocks.take(kPage + 1);
    ASSERT_NE(block.memory, nullptr);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block.memory) % kPage, 0U);
    EXPECT_EQ(block.bytes, 2 * kPage);
    blocks.give(block);
}

TEST(SpareBlocks, ComeAgainForAboutTheSameSize)
{
    SpareBlocks blocks;
    const SpareBlocks::Block block = blocks.take(10 * kPage);
    fill(block);
    blocks.give(block);
    EXPECT_EQ(blocks.keptBytes(), 10 * kPage);
    for (const std::size_t pages : {11U, 5U}) {
        const SpareBlocks::Block other = blocks.take(pages * kPage);
        EXPECT_NE(other.memory, block.memory) << pages;
        EXPECT_EQ(other.bytes, pages * kPage);
        fill(other);
        std::free(other.memory);
    }
    const SpareBlocks::Block again = blocks.take(9 * kPage);
    EXPECT_EQ(again.memory, block.memory);
    EXPECT_EQ(again.bytes, block.bytes);
    EXPECT_EQ(blocks.keptBytes(), 0U);
    fill(again);
    blocks.give(again);
}

TEST(SpareBlocks, AreFewAndBounded)
{
    SpareBlocks blocks;
    std::vector<SpareBlocks::Block> taken;
    for (int i = 0; i < 4; ++i) {
        taken.push_back(blocks.take(100 * kMegabyte));
    }
    for (const SpareBlocks::Block& block : taken) {
        blocks.give(block);
    }
    EXPECT_EQ(blocks.keptBytes(), 200 * kMegabyte);
    blocks.give(blocks.take(200 * kMegabyte));
    EXPECT_EQ(blocks.keptBytes(), 200 * kMegabyte);
    blocks.give(blocks.take(300 * kMegabyte));
    EXPECT_EQ(blocks.keptBytes(), 200 * kMegabyte);
}

TEST(UnsetImage, LiesWhereOneOfItsSizeHasGone)
{
    const QSize size(2000, 1500);
    const uchar* before = nullptr;
    {
        const QImage image = platform::unsetImage(size, QImage::Format_RGB32);
        const QImage shared = image;
        before = shared.constBits();
        const QImage other = platform::unsetImage(size, QImage::Format_RGB32);
        EXPECT_NE(other.constBits(), before);
    }
    EXPECT_EQ(platform::unsetImage(size, QImage::Format_RGB32).constBits(), before);
}

TEST(UnsetImage, IsNullWithoutPixels)
{
    EXPECT_TRUE(platform::unsetImage(QSize(0, 5), QImage::Format_RGB32).isNull());
    EXPECT_EQ(platform::unsetImage(QSize(3, 2), QImage::Format_RGB32).size(), QSize(3, 2));
}
