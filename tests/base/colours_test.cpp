#include "base/colours.h"

#include <gtest/gtest.h>

TEST(Colours, PacksRedInTheLowestByte)
{
    EXPECT_EQ(base::rgb(82, 109, 220), 14445906U);
    EXPECT_EQ(base::redOf(0xD6BEB5), 0xB5U);
    EXPECT_EQ(base::greenOf(0xD6BEB5), 0xBEU);
    EXPECT_EQ(base::blueOf(0xD6BEB5), 0xD6U);
}

TEST(Colours, TranslatesSystemEntries)
{
    EXPECT_EQ(base::translated(base::systemColour(15)), 0xC0C0C0U);
    EXPECT_EQ(base::translated(0x8000000D), base::rgb(0, 0, 0x80));
    EXPECT_EQ(base::translated(0x00123456), 0x123456U);
    EXPECT_EQ(base::translated(base::systemColour(200)), 0U);
}
