#include "thumbs/page_sheet.h"

#include <gtest/gtest.h>

using thumbs::PageSheet;

namespace {

constexpr base::Colour kRed = 0x0000FF;
constexpr base::Colour kGreen = 0x00FF00;

} // namespace

TEST(PageSheet, GivesAPageItsBitmapWhenItIsFirstPaintedOn)
{
    PageSheet sheet;
    sheet.restart({270, 620}, 1.0, 0);
    EXPECT_EQ(sheet.bitmap(0), nullptr);
    sheet.fillBox(0, {10, 10, 20, 20}, kRed);
    ASSERT_NE(sheet.bitmap(0), nullptr);
    EXPECT_EQ(sheet.bitmap(0)->size(), QSize(260, 600));
    EXPECT_EQ(sheet.bitmapBytes(), 260 * 600 * 4);
}

TEST(PageSheet, PaintsBoxesWithBothCorners)
{
    PageSheet sheet;
    sheet.restart({270, 620}, 1.0, kGreen);
    sheet.fillBox(0, {10, 10, 20, 20}, kRed);
    EXPECT_EQ(sheet.point(0, 9, 10), kGreen);
    EXPECT_EQ(sheet.point(0, 10, 10), kRed);
    EXPECT_EQ(sheet.point(0, 20, 20), kRed);
    EXPECT_EQ(sheet.point(0, 21, 20), kGreen);
    sheet.frameBox(0, {30, 30, 40, 40}, kRed);
    EXPECT_EQ(sheet.point(0, 30, 35), kRed);
    EXPECT_EQ(sheet.point(0, 31, 31), kGreen);
    EXPECT_EQ(sheet.point(0, 40, 40), kRed);
}

TEST(PageSheet, IsAsDenseAsTheScreen)
{
    PageSheet sheet;
    sheet.restart({270, 620}, 2.0, kGreen);
    sheet.fillBox(0, {10, 10, 20, 20}, kRed);
    ASSERT_NE(sheet.bitmap(0), nullptr);
    EXPECT_EQ(sheet.bitmap(0)->size(), QSize(520, 1200));
    EXPECT_EQ(sheet.bitmap(0)->pixel(19, 20), 0xFF00FF00);
    EXPECT_EQ(sheet.bitmap(0)->pixel(20, 20), 0xFFFF0000);
    EXPECT_EQ(sheet.bitmap(0)->pixel(41, 41), 0xFFFF0000);
    EXPECT_EQ(sheet.bitmap(0)->pixel(42, 41), 0xFF00FF00);
    QImage picture(4, 4, QImage::Format_RGB32);
    picture.fill(Qt::red);
    sheet.paintPicture(0, platform::Picture(picture), {100, 100.5}, {2, 2});
    EXPECT_EQ(sheet.bitmap(0)->pixel(200, 200), 0xFF00FF00);
    EXPECT_EQ(sheet.bitmap(0)->pixel(200, 201), 0xFFFF0000);
    EXPECT_EQ(sheet.bitmap(0)->pixel(203, 204), 0xFFFF0000);
    EXPECT_EQ(sheet.bitmap(0)->pixel(204, 204), 0xFF00FF00);
}

TEST(PageSheet, RoundsHalfPixelsToEven)
{
    PageSheet sheet;
    sheet.restart({270, 620}, 1.0, kGreen);
    QImage picture(2, 2, QImage::Format_RGB32);
    picture.fill(Qt::red);
    sheet.paintPicture(0, platform::Picture(picture), {10.5, 11.5}, {2, 2});
    EXPECT_EQ(sheet.point(0, 10, 12), kRed);
    EXPECT_EQ(sheet.point(0, 11, 13), kRed);
    EXPECT_EQ(sheet.point(0, 12, 12), kGreen);
    EXPECT_EQ(sheet.point(0, 10, 11), kGreen);
}

TEST(PageSheet, KeepsTilesWhenItsFirstPageTurns)
{
    PageSheet sheet;
    sheet.restart({270, 620}, 1.0, kGreen);
    sheet.fillBox(0, {10, 10, 20, 20}, kRed);
    sheet.setFirstPageColour(0x808080, {{10, 10, 20, 20}});
    EXPECT_EQ(sheet.point(0, 10, 10), kRed);
    EXPECT_EQ(sheet.point(0, 9, 9), 0x808080U);
}

TEST(PageSheet, PassesOverPagesThatAreNotThere)
{
    PageSheet sheet;
    sheet.restart({270, 620}, 1.0, kGreen);
    sheet.fillBox(3, {10, 10, 20, 20}, kRed);
    sheet.frameBox(-1, {10, 10, 20, 20}, kRed);
    sheet.clear(7);
    EXPECT_EQ(sheet.bitmap(3), nullptr);
    EXPECT_EQ(sheet.surface(3), nullptr);
    EXPECT_EQ(sheet.bitmapBytes(), 0);
}

TEST(PageSheet, GivesNewPagesTheColourOfTheFirst)
{
    PageSheet sheet;
    sheet.restart({270, 620}, 1.0, kGreen);
    sheet.addPage();
    EXPECT_EQ(sheet.pageColour(1), kGreen);
    sheet.fillBox(1, {10, 10, 20, 20}, kRed);
    sheet.destroyExtraPages();
    EXPECT_EQ(sheet.pages(), 1);
    EXPECT_EQ(sheet.bitmap(1), nullptr);
}

TEST(PageSheet, EmptiesAPage)
{
    PageSheet sheet;
    sheet.restart({270, 620}, 1.0, kGreen);
    sheet.fillBox(0, {10, 10, 20, 20}, kRed);
    sheet.clear(0);
    EXPECT_EQ(sheet.point(0, 10, 10), kGreen);
    EXPECT_EQ(sheet.bitmap(0), nullptr);
}
