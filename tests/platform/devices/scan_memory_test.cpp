#include "platform/devices/scan_memory.h"

#include <gtest/gtest.h>
#include <unistd.h>

using platform::ScanMemory;

TEST(ScanMemory, ShowsWhatTheOtherSideWrote)
{
    QImage image;
    {
        const ScanMemory memory;
        ASSERT_TRUE(memory.isOpen());
        const unsigned char pixels[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
        ASSERT_EQ(::pwrite(memory.descriptor(), pixels, sizeof pixels, 0), ssize_t(sizeof pixels));
        image = memory.image({2, 2, 3});
        const QImage grey = memory.image({5, 2, 1});
        EXPECT_EQ(grey.format(), QImage::Format_Grayscale8);
        EXPECT_EQ(qGray(grey.pixel(4, 1)), 10);
    }
    ASSERT_EQ(image.size(), QSize(2, 2));
    EXPECT_EQ(image.pixel(1, 0), qRgb(4, 5, 6));
    EXPECT_EQ(image.pixel(1, 1), qRgb(10, 11, 12));
}

TEST(ScanMemory, KeepsItsSize)
{
    const ScanMemory memory;
    ASSERT_TRUE(memory.isOpen());
    EXPECT_NE(::ftruncate(memory.descriptor(), 0), 0);
    EXPECT_NE(::ftruncate(memory.descriptor(), off_t(platform::kScanMemoryBytes) * 2), 0);
}

TEST(ScanMemory, HasNoImageBeyondItself)
{
    const ScanMemory memory;
    EXPECT_TRUE(memory.image({0, 10, 1}).isNull());
    EXPECT_TRUE(memory.image({10, 0, 3}).isNull());
    EXPECT_TRUE(memory.image({21000, 21000, 1}).isNull());
    EXPECT_TRUE(memory.image({4294967295U, 4294967295U, 3}).isNull());
}
