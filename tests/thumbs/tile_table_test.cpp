#include "thumbs/tile_table.h"

#include <gtest/gtest.h>

using thumbs::TileTable;

namespace {

TileTable tableOfThree()
{
    TileTable table;
    table.resize(3);
    table.fill(0, {18, 0, 88, 70}, "/p/a.jpg", 0);
    table.fill(2, {18, 0, 88, 70}, "/p/c.jpg", 1);
    return table;
}

} // namespace

TEST(TileTable, HasOneRowMoreThanFiles)
{
    TileTable table;
    EXPECT_EQ(table.rows(), 1);
    table.resize(0);
    EXPECT_EQ(table.rows(), 1);
    table.resize(10);
    EXPECT_EQ(table.rows(), 11);
}

TEST(TileTable, ForgetsItsRowsWhenItIsSizedAgain)
{
    TileTable table = tableOfThree();
    table.resize(3);
    EXPECT_EQ(table.filledRow(0), nullptr);
    EXPECT_TRUE(table.tiles().empty());
}

TEST(TileTable, TellsWhichRowsHaveATile)
{
    TileTable table = tableOfThree();
    EXPECT_EQ(table.tiles(), (std::vector<int>{0, 2}));
    table.fill(1, {18, 0, 88, 70}, "/p/b.jpg", 0);
    table.fill(2, {18, 0, 88, 70}, "/p/d.jpg", 1);
    EXPECT_EQ(table.tiles(), (std::vector<int>{0, 1, 2}));
}

TEST(TileTable, HasARowForEveryFile)
{
    const TileTable table = tableOfThree();
    EXPECT_TRUE(table.hasRow(0));
    EXPECT_TRUE(table.hasRow(2));
    EXPECT_FALSE(table.hasRow(3));
    EXPECT_FALSE(table.hasRow(-1));
}

TEST(TileTable, FindsTilesOfTheirOwnPageOnly)
{
    const TileTable table = tableOfThree();
    EXPECT_EQ(table.rowAt(0, 30, 30, 3), 0);
    EXPECT_EQ(table.rowAt(1, 30, 30, 3), 2);
    EXPECT_EQ(table.rowAt(2, 30, 30, 3), std::nullopt);
}

TEST(TileTable, CountsTheEdgesToATile)
{
    const TileTable table = tableOfThree();
    EXPECT_EQ(table.rowAt(0, 18, 0, 3), 0);
    EXPECT_EQ(table.rowAt(0, 88, 70, 3), 0);
    EXPECT_EQ(table.rowAt(0, 89, 70, 3), std::nullopt);
}

TEST(TileTable, SkipsRowsThatWereNeverFilled)
{
    const TileTable table = tableOfThree();
    EXPECT_EQ(table.rowAt(0, 0, 0, 3), std::nullopt);
    EXPECT_EQ(table.filledRow(1), nullptr);
}

TEST(TileTable, LooksAtTheGivenNumberOfFiles)
{
    EXPECT_EQ(tableOfThree().rowAt(1, 30, 30, 2), std::nullopt);
    EXPECT_EQ(tableOfThree().rowAt(1, 30, 30, 500), 2);
}

TEST(TileTable, PassesOverRowsOutside)
{
    TileTable table = tableOfThree();
    table.fill(4, {0, 0, 1, 1}, "/p/x.jpg", 0);
    table.fill(-1, {0, 0, 1, 1}, "/p/x.jpg", 0);
    EXPECT_EQ(table.rows(), 4);
    EXPECT_EQ(table.filledRow(4), nullptr);
    EXPECT_EQ(table.filledRow(-1), nullptr);
}
