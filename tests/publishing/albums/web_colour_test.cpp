#include "publishing/albums/web_colour.h"

#include <gtest/gtest.h>

TEST(ConvertDecimalToHex, GivesSixDigitsWithRedFirst)
{
    EXPECT_EQ(Convert_Decimal_To_Hex(0x330099), "990033");
    EXPECT_EQ(Convert_Decimal_To_Hex(0), "000000");
    EXPECT_EQ(Convert_Decimal_To_Hex(0x0000FF), "FF0000");
    EXPECT_EQ(Convert_Decimal_To_Hex(0xABCDEF), "EFCDAB");
    EXPECT_EQ(Convert_Decimal_To_Hex(0xFFFFFF), "FFFFFF");
}

TEST(ConvertDecimalToHex, TakesTheValueOfAColourOfTheSystem)
{
    EXPECT_EQ(Convert_Decimal_To_Hex(base::systemColour(13)), "000080");
}

TEST(NumberSign, IsPutInFrontOnce)
{
    EXPECT_EQ(albums::withNumberSign("990033"), "#990033");
    EXPECT_EQ(albums::withNumberSign("#990033"), "#990033");
    EXPECT_EQ(albums::withNumberSign(""), "#");
}
