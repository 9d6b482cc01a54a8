#include "files/explorer/list_layout.h"

#include <gtest/gtest.h>

using files::ItemRun;
using files::ListFlow;
using files::ListLayout;
using files::ListMove;

namespace {

// Seven items: three in a row of the first, two in a column of the second.
const ListLayout kRows(ListFlow::Rows, {100, 50}, {350, 120}, 7);
const ListLayout kColumns(ListFlow::Columns, {100, 50}, {350, 120}, 7);

} // namespace

TEST(ListLayout, FillsRowsOrColumns)
{
    EXPECT_EQ(kRows.content(), QSize(300, 150));
    EXPECT_EQ(kRows.itemRect(4), QRect(102, 52, 96, 46));
    EXPECT_EQ(kColumns.content(), QSize(400, 100));
    EXPECT_EQ(kColumns.itemRect(4), QRect(202, 2, 96, 46));
}

TEST(ListLayout, FindsItemsByTheirPlace)
{
    for (int item = 0; item < 7; ++item) {
        for (const ListLayout* const layout : {&kRows, &kColumns}) {
            const QRect rect = layout->itemRect(item);
            EXPECT_EQ(layout->itemAt(rect.topLeft()), item);
            EXPECT_EQ(layout->itemAt(rect.bottomRight()), item);
            EXPECT_EQ(layout->itemAt(rect.topLeft() - QPoint(1, 0)), -1);
            EXPECT_EQ(layout->itemAt(rect.bottomRight() + QPoint(0, 1)), -1);
        }
    }
    EXPECT_EQ(kRows.itemAt({320, 20}), -1);
    EXPECT_EQ(kRows.itemAt({150, 125}), -1);
    EXPECT_EQ(kRows.itemAt({-10, 20}), -1);
    EXPECT_EQ(kRows.itemAt({20, -1}), -1);
}

TEST(ListLayout, GivesTheItemsOfAnAreaAsRuns)
{
    using Runs = std::vector<ItemRun>;
    EXPECT_EQ(kRows.itemsIn({0, 0, 300, 150}), Runs({{0, 6}}));
    EXPECT_EQ(kRows.itemsIn({110, 10, 150, 200}), Runs({{1, 2}, {4, 5}}));
    EXPECT_EQ(kColumns.itemsIn({110, 60, 150, 200}), Runs({{3, 3}, {5, 5}}));
    EXPECT_EQ(kRows.itemsIn({310, 0, 50, 150}), Runs());
    EXPECT_EQ(ListLayout(ListFlow::Rows, {9, 9}, {90, 90}, 0).itemsIn({0, 0, 90, 90}), Runs());
}

TEST(ListLayout, FollowsTheArrows)
{
    EXPECT_EQ(kRows.moved(4, ListMove::Left), 3);
    EXPECT_EQ(kRows.moved(4, ListMove::Right), 5);
    EXPECT_EQ(kRows.moved(4, ListMove::Up), 1);
    EXPECT_EQ(kRows.moved(1, ListMove::Up), 1);
    EXPECT_EQ(kRows.moved(4, ListMove::Down), 6);
    EXPECT_EQ(kRows.moved(6, ListMove::Down), 6);
    EXPECT_EQ(kRows.moved(6, ListMove::Right), 6);
    EXPECT_EQ(kColumns.moved(2, ListMove::Down), 3);
    EXPECT_EQ(kColumns.moved(2, ListMove::Right), 4);
    EXPECT_EQ(kColumns.moved(5, ListMove::Right), 6);
    EXPECT_EQ(kColumns.moved(1, ListMove::Left), 1);
}

TEST(ListLayout, FollowsThePageKeysAndTheEnds)
{
    EXPECT_EQ(kRows.moved(0, ListMove::PageDown), 6);
    EXPECT_EQ(kRows.moved(5, ListMove::PageUp), 2);
    EXPECT_EQ(kRows.moved(4, ListMove::PageUp), 1);
    EXPECT_EQ(kRows.moved(1, ListMove::PageUp), 0);
    EXPECT_EQ(kRows.moved(4, ListMove::Home), 0);
    EXPECT_EQ(kRows.moved(0, ListMove::End), 6);
    EXPECT_EQ(ListLayout(ListFlow::Rows, {9, 9}, {5, 5}, 0).moved(0, ListMove::End), 0);
    EXPECT_EQ(ListLayout(ListFlow::Rows, {9, 9}, {5, 5}, 3).moved(1, ListMove::Up), 0);
}
