#include "publishing/printing/print_picture_layout.h"

#include <gtest/gtest.h>

using printing::alignedOffset;
using printing::frameSides;
using printing::Margins;
using printing::pagePixels;
using printing::shrunkInto;

namespace {

// Top, left, right, bottom.
constexpr Margins kNone{0, 0, 0, 0};

} // namespace

TEST(PrintPage, IsThePaperAt96PixelsAnInch)
{
    EXPECT_EQ(pagePixels({148, 210}, kNone), QSize(559, 794));
    EXPECT_EQ(pagePixels({210, 297}, kNone), QSize(794, 1123));
    EXPECT_EQ(pagePixels({297, 420}, kNone), QSize(1123, 1587));
}

TEST(PrintPage, LosesAQuarterOfTheMargins)
{
    EXPECT_EQ(pagePixels({210, 297}, Margins{40, 20, 60, 80}), QSize(774, 1093));
}

TEST(PrintPage, IsRoundedOnceWithHalvesToEven)
{
    // 127 mm are 480 pixels exactly.
    EXPECT_EQ(pagePixels({127, 127}, Margins{1, 1, 1, 1}), QSize(480, 480));
    EXPECT_EQ(pagePixels({127, 127}, Margins{3, 3, 3, 3}), QSize(478, 478));
    EXPECT_EQ(pagePixels({127, 127}, Margins{1, 2, 1, 0}), QSize(479, 480));
}

TEST(PrintPage, MayHaveNoRoom)
{
    EXPECT_EQ(pagePixels({0, -5}, kNone), QSize(0, -19));
    EXPECT_EQ(pagePixels({10, 10}, Margins{400, 400, 400, 400}), QSize(-162, -162));
    EXPECT_EQ(pagePixels({10000, 32767}, kNone), QSize(37795, 123844));
}

TEST(PrintPage, StandsLargeMarginsOfAPrinter)
{
    const Margins large{2000000000, 2000000000, 2000000000, 2000000000};
    EXPECT_EQ(pagePixels({210, 297}, large), QSize(794 - 1000000000, 1123 - 1000000000));
}

TEST(PrintAlignment, PlacesAPictureNineWays)
{
    const QSize page(100, 200);
    const QSize picture(30, 50);
    const QPoint expected[] = {{0, 0},   {35, 0},  {70, 0},   {0, 75},  {35, 75},
                               {70, 75}, {0, 150}, {35, 150}, {70, 150}};
    for (int align = 0; align < 9; ++align) {
        EXPECT_EQ(alignedOffset(align, page, picture), expected[align]) << align;
    }
}

TEST(PrintAlignment, LetsALargePictureHangOver)
{
    const QSize page(100, 200);
    const QSize picture(105, 215);
    const QPoint expected[] = {{0, 0},   {-2, 0},  {-5, 0},   {0, -8},  {-2, -8},
                               {-5, -8}, {0, -15}, {-2, -15}, {-5, -15}};
    for (int align = 0; align < 9; ++align) {
        EXPECT_EQ(alignedOffset(align, page, picture), expected[align]) << align;
    }
}

TEST(PrintAlignment, RoundsHalvesToTheEvenPixel)
{
    EXPECT_EQ(alignedOffset(4, {5, 7}, {0, 0}), QPoint(2, 4));
    EXPECT_EQ(alignedOffset(4, {0, 0}, {5, 7}), QPoint(-2, -4));
    EXPECT_EQ(alignedOffset(4, {1, 0}, {0, 1}), QPoint(0, 0));
}

TEST(PrintAlignment, StaysInTheCornerForANumberThatIsNone)
{
    for (const int align : {-1, 9, 2147483647}) {
        EXPECT_EQ(alignedOffset(align, {100, 100}, {10, 10}), QPoint(0, 0)) << align;
    }
}

TEST(PrintShrinking, ReducesInProportionAndNeverEnlarges)
{
    EXPECT_EQ(shrunkInto({100, 200}, {400, 400}), QSize(100, 100));
    EXPECT_EQ(shrunkInto({100, 200}, {50, 400}), QSize(25, 200));
    EXPECT_EQ(shrunkInto({100, 200}, {100, 200}), QSize(100, 200));
    EXPECT_EQ(shrunkInto({100, 200}, {1, 1}), QSize(1, 1));
    EXPECT_EQ(shrunkInto({794, 1123}, {30000, 2}), QSize(794, 1));
}

TEST(PrintFrame, RunsToBothEnds)
{
    const auto sides = frameSides({10, 20}, {30, 40}, {100, 100});
    EXPECT_EQ(sides[0], QRect(10, 20, 31, 1));
    EXPECT_EQ(sides[1], QRect(10, 60, 31, 1));
    EXPECT_EQ(sides[2], QRect(10, 20, 1, 41));
    EXPECT_EQ(sides[3], QRect(40, 20, 1, 41));
}

TEST(PrintFrame, IsCutByThePage)
{
    const auto sides = frameSides({-5, 10}, {200, 20}, {100, 25});
    EXPECT_EQ(sides[0], QRect(0, 10, 100, 1));
    EXPECT_TRUE(sides[1].isEmpty());
    EXPECT_TRUE(sides[2].isEmpty());
    EXPECT_TRUE(sides[3].isEmpty());
}
