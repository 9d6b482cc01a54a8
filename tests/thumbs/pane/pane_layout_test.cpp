#include "thumbs/pane/pane_layout.h"

#include <gtest/gtest.h>

using thumbs::layoutPane;
using thumbs::PaneBox;
using thumbs::PaneLayout;

TEST(PaneLayout, TakesItsHeightFromTheViewerBesideBothBands)
{
    EXPECT_EQ(thumbs::paneHeight(540, 8000, 12000), 8620);
    EXPECT_EQ(thumbs::paneHeight(270, 8000, 12000), 9980);
}

TEST(PaneLayout, StacksTreeSplitterButtonsAndThumbnails)
{
    const PaneLayout layout = layoutPane({4700, 9000, 300, 2000, 390});
    EXPECT_EQ(layout.splitter, (PaneBox{0, 2000, 4700, 8}));
    EXPECT_EQ(layout.tree, (PaneBox{-1, 300, 4702, 1700}));
    EXPECT_EQ(layout.buttons, (PaneBox{0, 2005, 4700, 390}));
    EXPECT_EQ(layout.thumbnails, (PaneBox{-1, 2395, 4702, 6540}));
}

TEST(PaneLayout, KeepsAHundredForTheTree)
{
    EXPECT_EQ(layoutPane({4700, 9000, 300, 0, 390}).splitter.top, 400);
    EXPECT_EQ(layoutPane({4700, 9000, 300, -700, 390}).tree.height, 100);
    EXPECT_EQ(layoutPane({4700, 9000, 300, 400, 390}).splitter.top, 400);
}

TEST(PaneLayout, KeepsTheSplitterAboveItsLowerLimit)
{
    EXPECT_EQ(layoutPane({4700, 9000, 300, 8000, 390}).splitter.top, 2500);
    EXPECT_EQ(layoutPane({4700, 9000, 300, 2500, 390}).splitter.top, 2500);
    EXPECT_EQ(layoutPane({4700, 9000, 2450, 0, 390}).splitter.top, 2500);
}

TEST(PaneLayout, GivesTheSplitterRoomOnTheScreen)
{
    const PaneLayout layout = layoutPane({4700, 9000, 300, 2000, 390}, thumbs::kScreenMetrics);
    EXPECT_EQ(layout.splitter, (PaneBox{0, 2000, 4700, 75}));
    EXPECT_EQ(layout.buttons.top, 2075);
    EXPECT_EQ(layout.thumbnails.top, 2465);
}

TEST(PaneLayout, HoldsTheWidthBetweenItsLimits)
{
    EXPECT_EQ(thumbs::clampedPaneWidth(100), 2000);
    EXPECT_EQ(thumbs::clampedPaneWidth(4800), 4800);
    EXPECT_EQ(thumbs::clampedPaneWidth(20000), 9070);
}
