#include "thumbs/tile_grid.h"

#include <gtest/gtest.h>

using thumbs::makeTileGrid;
using thumbs::TileBox;
using thumbs::tileBox;
using thumbs::TileGrid;

TEST(TileGrid, FillsAPageWithWholeTiles)
{
    const TileGrid grid = makeTileGrid({260, 600}, 60, {0, 0});
    EXPECT_EQ(grid.cellWidth, 70);
    EXPECT_EQ(grid.cellHeight, 70);
    EXPECT_EQ(grid.columns, 3);
    EXPECT_EQ(grid.rows, 8);
    EXPECT_EQ(grid.tilesPerPage(), 24);
}

TEST(TileGrid, CentresTheBlockWithOneTrailingGapAndRoundsHalvesToEven)
{
    const TileGrid grid = makeTileGrid({260, 600}, 60, {0, 0});
    EXPECT_EQ(grid.left, 18); // 17.5
    EXPECT_EQ(grid.top, 0);
    EXPECT_EQ(makeTileGrid({258, 600}, 60, {0, 0}).left, 16); // 16.5
}

TEST(TileGrid, NeedsATileAndItsGapForAColumn)
{
    EXPECT_EQ(makeTileGrid({750, 600}, 60, {0, 0}).columns, 10);
    EXPECT_EQ(makeTileGrid({749, 600}, 60, {0, 0}).columns, 9);
}

TEST(TileGrid, GrowsByTheExtraSizes)
{
    const TileGrid grid = makeTileGrid({260, 600}, 60, {20, 30});
    EXPECT_EQ(grid.cellWidth, 90);
    EXPECT_EQ(grid.cellHeight, 100);
    EXPECT_EQ(grid.columns, 2);
    EXPECT_EQ(grid.rows, 5);
}

TEST(TileGrid, HoldsNoTileOnATinyPage)
{
    EXPECT_EQ(makeTileGrid({10, 0}, 60, {0, 0}).tilesPerPage(), 0);
}

TEST(TileGrid, KeepsThePreviousNumberWhereOneCannotBeComputed)
{
    TileGrid previous;
    previous.columns = 7;
    previous.left = 11;
    EXPECT_EQ(makeTileGrid({260, 600}, 60, {-75, 0}, previous).columns, 7);
    EXPECT_EQ(makeTileGrid({90000, 600}, 60000, {0, 0}, previous).left, 14992);
    EXPECT_EQ(makeTileGrid({90000, 600}, 100000, {0, 0}, previous).left, 11);
}

TEST(TileGrid, PlacesTilesByColumnAndRow)
{
    const TileGrid grid = makeTileGrid({260, 600}, 60, {0, 0});
    EXPECT_EQ(tileBox(grid, 0, 0), (TileBox{18, 0, 88, 70}));
    EXPECT_EQ(tileBox(grid, 2, 3), (TileBox{168, 225, 238, 295}));
}

TEST(TileBox, HoldsItsEdges)
{
    const TileBox box{18, 0, 88, 70};
    EXPECT_TRUE(box.holds(18, 0));
    EXPECT_TRUE(box.holds(88, 70));
    EXPECT_FALSE(box.holds(89, 70));
    EXPECT_FALSE(box.holds(88, 71));
    EXPECT_EQ(box.rect(), QRect(18, 0, 71, 71));
    EXPECT_EQ(box.grown(1), (TileBox{17, -1, 89, 71}));
}

TEST(ViewportMeasure, LooksAtTheViewportAlone)
{
    const thumbs::ViewportMeasure measure = thumbs::measureViewport({270, 620}, 60);
    EXPECT_EQ(measure.cellSize, 70);
    EXPECT_EQ(measure.columns, 3);
    EXPECT_EQ(measure.tilesPerPage, 24);
    EXPECT_EQ(thumbs::measureViewport({300, 620}, 60).tilesPerPage, 32);
    EXPECT_EQ(thumbs::measureViewport({20, 20}, 60).tilesPerPage, 0);
}

TEST(TileGrid, PlacesTilesLineByLineAndPageByPage)
{
    thumbs::TileGrid grid;
    grid.columns = 3;
    grid.rows = 8;
    const struct {
        int file;
        int page;
        int column;
        int row;
    } places[] = {{0, 0, 0, 0},  {2, 0, 2, 0},  {3, 0, 0, 1},
                  {23, 0, 2, 7}, {24, 1, 0, 0}, {50, 2, 2, 0}};
    for (const auto& expected : places) {
        const thumbs::TilePlace place = thumbs::tilePlace(grid, expected.file);
        EXPECT_EQ(place.page, expected.page) << expected.file;
        EXPECT_EQ(place.column, expected.column) << expected.file;
        EXPECT_EQ(place.row, expected.row) << expected.file;
    }
}

TEST(TileGrid, TurnsThePageForEveryFileWhereNoTileFits)
{
    for (const int file : {0, 1, 7}) {
        const thumbs::TilePlace place = thumbs::tilePlace({}, file);
        EXPECT_EQ(place.page, file + 1);
        EXPECT_EQ(place.column, 0);
        EXPECT_EQ(place.row, 0);
    }
}
