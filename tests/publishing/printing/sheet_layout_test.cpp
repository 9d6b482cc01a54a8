#include "publishing/printing/sheet_layout.h"

#include <gtest/gtest.h>

using namespace printing;

namespace {

// A printable part in pixels, at 200 to the inch both ways.
platform::PaperMetrics paper(int width, int height)
{
    platform::PaperMetrics metrics;
    metrics.logPixelsX = metrics.logPixelsY = 200;
    metrics.innerWidth = width;
    metrics.innerHeight = height;
    return metrics;
}

void expectPlace(const thumbs::TilePlace& place, int sheet, int column, int row)
{
    EXPECT_EQ(place.page, sheet);
    EXPECT_EQ(place.column, column);
    EXPECT_EQ(place.row, row);
}

} // namespace

TEST(SheetLayout, GivesTheSheetTheProportionsOfThePaper)
{
    EXPECT_EQ(sheetWidth(600, paper(1000, 2000)), 300);
    EXPECT_EQ(sheetWidth(600, paper(2000, 1000)), 1200);
    EXPECT_EQ(sheetWidth(580, paper(1574, 2259)), 404); // of 404.1
    EXPECT_EQ(sheetWidth(100, paper(1999, 1000)), 199); // of 199.9
}

TEST(SheetLayout, CountsThePixelsOfThePaperByTheirOwnSizes)
{
    platform::PaperMetrics oblong = paper(2000, 2000);
    oblong.logPixelsX = 400;
    EXPECT_EQ(sheetWidth(600, oblong), 300);
}

TEST(SheetLayout, HasNoWidthWithoutPaper)
{
    EXPECT_EQ(sheetWidth(600, {}), std::nullopt);
    EXPECT_EQ(sheetWidth(600, paper(0, 100)), std::nullopt);
    EXPECT_EQ(sheetWidth(600, paper(100, 0)), std::nullopt);
    EXPECT_EQ(sheetWidth(600, paper(-100, 100)), std::nullopt);
    EXPECT_EQ(sheetWidth(600, paper(2000000000, 1)), std::nullopt);
}

TEST(SheetLayout, CentresTheGridAndRoundsHalvesToTheEvenNumber)
{
    const SheetLayout layout = layOutSheet({500, 700}, 100, 5, 800);
    EXPECT_EQ(layout.PrintThumbSize, 89);
    EXPECT_EQ(layout.columns, 5);
    EXPECT_EQ(layout.rows, 7);
    EXPECT_EQ(layout.gridLeft, 28); // of 27.5
    EXPECT_EQ(layout.gridTop, 38);  // of 38.5
    EXPECT_EQ(layout.left, 150);
}

TEST(SheetLayout, DropsTheFractionOfACell)
{
    EXPECT_EQ(layOutSheet({499, 700}, 100, 5, 800).PrintThumbSize, 88); // of 99.8
}

TEST(SheetLayout, ZoomsTheSheetAndDropsFractions)
{
    EXPECT_EQ(layOutSheet({424, 600}, 50, 5, 270).sheet, QSize(212, 300));
    EXPECT_EQ(layOutSheet({425, 601}, 50, 5, 270).sheet, QSize(212, 300));
    EXPECT_EQ(layOutSheet({424, 600}, 200, 5, 270).sheet, QSize(848, 1200));
    EXPECT_EQ(layOutSheet({424, 600}, 200, 5, 270).left, -289);
}

TEST(SheetLayout, HasNoCellsForNoColumns)
{
    const SheetLayout layout = layOutSheet({500, 700}, 100, 0, 800);
    EXPECT_EQ(layout.PrintThumbSize, 0);
    EXPECT_EQ(layout.columns, 0);
    EXPECT_EQ(layout.rows, 0);
    expectPlace(sheetPlace(layout, 0), 1, 0, 0);
    EXPECT_TRUE(pictureRect(layout, {}, {100, 100}).isEmpty());
}

TEST(SheetLayout, HasNoRoomForPicturesInTooManyColumns)
{
    for (const int columns : {24, 45, 50, 400, 32767, -5, -32768}) {
        const SheetLayout layout = layOutSheet({500, 700}, 100, columns, 800);
        EXPECT_TRUE(pictureRect(layout, sheetPlace(layout, 3), {300, 200}).isEmpty()) << columns;
    }
}

TEST(SheetLayout, StandsTheSizesOfNoSheet)
{
    for (const QSize page : {QSize(0, 0), QSize(0, 600), QSize(-10, -20), QSize(5, 5)}) {
        const SheetLayout layout = layOutSheet(page, 100, 5, 800);
        EXPECT_TRUE(pictureRect(layout, sheetPlace(layout, 0), {300, 200}).isEmpty());
    }
}

TEST(SheetLayout, FillsASheetRowByRow)
{
    const SheetLayout layout = layOutSheet({500, 700}, 100, 5, 800);
    expectPlace(sheetPlace(layout, 0), 0, 0, 0);
    expectPlace(sheetPlace(layout, 4), 0, 4, 0);
    expectPlace(sheetPlace(layout, 5), 0, 0, 1);
    expectPlace(sheetPlace(layout, 34), 0, 4, 6);
    expectPlace(sheetPlace(layout, 35), 1, 0, 0);
    expectPlace(sheetPlace(layout, 70), 2, 0, 0);
}

// The first sheet stays empty.
TEST(SheetLayout, TakesASheetForEachPictureWhereOneColumnIsHigherThanThePaper)
{
    const SheetLayout layout = layOutSheet({1200, 600}, 100, 1, 800);
    EXPECT_EQ(layout.columns, 1);
    EXPECT_EQ(layout.rows, 0);
    EXPECT_EQ(layout.gridTop, 300);
    expectPlace(sheetPlace(layout, 0), 1, 0, 0);
    expectPlace(sheetPlace(layout, 1), 2, 0, 0);
}

TEST(SheetLayout, CentresAPictureInItsCell)
{
    const SheetLayout layout = layOutSheet({500, 700}, 100, 5, 800);
    EXPECT_EQ(pictureRect(layout, {0, 0, 0}, {790, 395}), QRectF(33, 62.5, 79, 40));
    EXPECT_EQ(pictureRect(layout, {0, 2, 1}, {200, 790}), QRectF(240.5, 132, 20, 79));
    EXPECT_EQ(pictureRect(layout, {0, 0, 0}, {31, 20}), QRectF(57, 72.5, 31, 20));
}

TEST(SheetLayout, HasNoRoomForAPictureThatShrinksToNothing)
{
    const SheetLayout layout = layOutSheet({500, 700}, 100, 5, 800);
    EXPECT_TRUE(pictureRect(layout, {}, {30000, 2}).isEmpty());
    EXPECT_TRUE(pictureRect(layout, {}, {0, 0}).isEmpty());
}

TEST(SheetLayout, StandsAtTheSamePlaceOnPaper)
{
    EXPECT_EQ(onPaper({33, 62.5, 79, 40}, {500, 700}, paper(1500, 2100)),
              QRectF(99, 187.5, 237, 120));
    EXPECT_EQ(onPaper({10, 20, 30, 40}, {100, 100}, paper(50, 200)), QRectF(5, 40, 15, 80));
    EXPECT_TRUE(onPaper({10, 20, 30, 40}, {0, 100}, paper(50, 200)).isEmpty());
}

TEST(SheetLayout, KnowsThePixelsThatPaperShows)
{
    platform::PaperMetrics metrics = paper(1000, 1000);
    metrics.logPixelsY = 600;
    EXPECT_EQ(pixelsWorthPrinting({458, 458}, metrics), QSize(687, 458));
    EXPECT_EQ(pixelsWorthPrinting({0.5, 0.5}, metrics), QSize(1, 1));
    EXPECT_TRUE(pixelsWorthPrinting({458, 0}, metrics).isEmpty());
    EXPECT_TRUE(pixelsWorthPrinting({458, 458}, {}).isEmpty());
}

TEST(SheetLayout, FindsTheZoomThatShowsAWholeSheet)
{
    EXPECT_EQ(wholeSheetZoom({300, 600}, {400, 640}), 100);
    EXPECT_EQ(wholeSheetZoom({300, 600}, {2000, 2000}), 100);
    EXPECT_EQ(wholeSheetZoom({800, 600}, {440, 640}), 50);
    EXPECT_EQ(wholeSheetZoom({800, 600}, {20, 20}), 10);
    EXPECT_EQ(wholeSheetZoom({0, 600}, {20, 20}), 100);
}

TEST(SheetLayout, HasTheColumnsThatAreWantedOnPaper)
{
    for (int columns = 1; columns <= 12; ++columns) {
        const SheetLayout layout = layOutPaper({368, 520}, columns);
        EXPECT_TRUE(holdsPictures(layout));
        EXPECT_LE(layout.columns, columns);
        EXPECT_GE(layout.columns, columns - 1);
    }
    EXPECT_EQ(layOutPaper({500, 700}, 5).PrintThumbSize, 89);
    EXPECT_EQ(layOutPaper({368, 520}, 8).PrintThumbSize, 41); // 7 were asked for; 8 come to 10
}

TEST(SheetLayout, HasRoomForPicturesInManyColumnsOnPaper)
{
    for (const QSize page : {QSize(368, 520), QSize(520, 368), QSize(410, 580)}) {
        const SheetLayout layout = layOutPaper(page, 20);
        EXPECT_TRUE(holdsPictures(layout));
        EXPECT_LE(layout.columns, 20);
        EXPECT_GE(layout.columns, 15);
    }
}

TEST(SheetLayout, HasOneRowOnPaperThatIsWiderThanHigh)
{
    const SheetLayout layout = layOutPaper({760, 540}, 1);
    EXPECT_EQ(layout.PrintThumbSize, 540);
    EXPECT_EQ(layout.columns, 1);
    EXPECT_EQ(layout.rows, 1);
    EXPECT_EQ(layout.gridLeft, 110);
    EXPECT_EQ(layout.gridTop, 0);
    expectPlace(sheetPlace(layout, 0), 0, 0, 0);
    expectPlace(sheetPlace(layout, 1), 1, 0, 0);
}

TEST(SheetLayout, HoldsNoPicturesOnAStripOfPaper)
{
    EXPECT_FALSE(holdsPictures(layOutPaper({20, 560}, 5)));
    EXPECT_FALSE(holdsPictures(layOutPaper({560, 9}, 5)));
    EXPECT_FALSE(holdsPictures(layOutPaper({0, 0}, 5)));
    EXPECT_FALSE(holdsPictures(layOutSheet({500, 700}, 100, 30, 800)));
}

TEST(SheetLayout, StandsAtTheSamePlaceOnASheetOfAnotherSize)
{
    EXPECT_EQ(samePlace({33, 62.5, 79, 40}, {500, 700}, {250, 175}),
              QRectF(16.5, 15.625, 39.5, 10));
    EXPECT_TRUE(samePlace({33, 62.5, 79, 40}, {0, 700}, {250, 175}).isEmpty());
}
