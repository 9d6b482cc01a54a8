#include "base/numbers.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

TEST(Numbers, TakesTheLeadingDigitsOfAText)
{
    EXPECT_EQ(base::leadingNumber("3 items"), 3);
    EXPECT_EQ(base::leadingNumber("  12"), 12);
    EXPECT_EQ(base::leadingNumber("-4.5x"), -4.5);
    EXPECT_EQ(base::leadingNumber("ERROR"), 0);
    EXPECT_EQ(base::leadingNumber(""), 0);
    EXPECT_EQ(base::leadingNumber("0.0"), 0);
    EXPECT_EQ(base::leadingNumber("inf"), 0);
    EXPECT_EQ(base::leadingNumber("+7"), 7);
}

TEST(Numbers, KeepsTheSignAndTheSizeOfWhatNoDoubleHolds)
{
    constexpr double kInfinite = std::numeric_limits<double>::infinity();
    EXPECT_EQ(base::leadingNumber("1e999 x"), kInfinite);
    EXPECT_EQ(base::leadingNumber("-1e999"), -kInfinite);
    EXPECT_EQ(base::leadingNumber("1e-999"), 0);
    EXPECT_EQ(base::leadingNumber("-1E-999"), 0);
    EXPECT_EQ(base::leadingNumber(std::string(400, '7')), kInfinite);
    EXPECT_EQ(base::leadingNumber("0." + std::string(400, '0') + "1"), 0);
}

TEST(Numbers, ConvertsStrictlyOrNotAtAll)
{
    EXPECT_EQ(base::strictInteger("14445906"), 14445906);
    EXPECT_EQ(base::strictInteger(" -1 "), -1);
    EXPECT_EQ(base::strictInteger("2.5"), 2);
    EXPECT_EQ(base::strictInteger("3.5"), 4);
    EXPECT_FALSE(base::strictInteger("RGB(82, 109, 220)"));
    EXPECT_FALSE(base::strictInteger("ERROR"));
    EXPECT_FALSE(base::strictInteger(""));
    EXPECT_FALSE(base::strictInteger("12x"));
    EXPECT_FALSE(base::strictInteger("2147483648"));
    EXPECT_FALSE(base::strictInteger("1e999"));
}

TEST(Numbers, ReadsBooleansFromWordsAndNumbers)
{
    EXPECT_EQ(base::toBoolean("True"), true);
    EXPECT_EQ(base::toBoolean("true"), true);
    EXPECT_EQ(base::toBoolean("1"), true);
    EXPECT_EQ(base::toBoolean("-1"), true);
    EXPECT_EQ(base::toBoolean("False"), false);
    EXPECT_EQ(base::toBoolean("0"), false);
    EXPECT_FALSE(base::toBoolean("ERROR"));
    EXPECT_FALSE(base::toBoolean("x"));
}

TEST(Numbers, RoundsHalvesToEven)
{
    EXPECT_EQ(base::roundHalfEven(0.5), 0);
    EXPECT_EQ(base::roundHalfEven(1.5), 2);
    EXPECT_EQ(base::roundHalfEven(2.5), 2);
    EXPECT_EQ(base::roundHalfEven(-0.5), 0);
    EXPECT_EQ(base::roundHalfEven(-1.5), -2);
    EXPECT_EQ(base::roundHalfEven(2.4999), 2);
}

TEST(Numbers, NarrowsOnlyWhatFits)
{
    EXPECT_EQ(base::narrow16(32767), 32767);
    EXPECT_FALSE(base::narrow16(32768));
    EXPECT_EQ(base::narrow16(-32768), -32768);
    EXPECT_FALSE(base::roundTo16(32767.5));
    EXPECT_EQ(base::roundTo16(28.5), 28);
}

TEST(Numbers, WritesDecimalsWithAPoint)
{
    EXPECT_EQ(base::decimalText(2), "2");
    EXPECT_EQ(base::decimalText(1.5), "1.5");
    EXPECT_EQ(base::decimalText(1025.0 / 1024), "1.0009765625");
}
