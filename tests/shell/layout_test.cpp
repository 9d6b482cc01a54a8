#include "shell/layout.h"

#include <gtest/gtest.h>

namespace {

shell::WindowMeasures measures()
{
    shell::WindowMeasures measures;
    measures.outerWidth = 19320;
    measures.innerWidth = 19200;
    measures.innerHeight = 11000;
    measures.left = -60;
    measures.coolBarTop = 0;
    measures.coolBarHeight = 540;
    measures.stripHeight = 360;
    measures.paneWidth = 4800;
    measures.aviWidth = 600;
    return measures;
}

} // namespace

TEST(Layout, PutsTheViewerBesideAndALittleUnderThePane)
{
    const shell::BrowseLayout layout = shell::browseLayout(measures());
    EXPECT_EQ(layout.viewer, (shell::Extent{4720, 540, 14480, 10100}));
    EXPECT_EQ(layout.paneLeft, -60);
    EXPECT_EQ(layout.paneTop, 1180);
    EXPECT_EQ(layout.aviLeft, 18599);
    EXPECT_EQ(layout.aviTop, 1);
}

TEST(Layout, FillsTheWorkAreaToItsRightEdgeWhenTheFrameIsCounted)
{
    const shell::BrowseLayout layout = shell::browseLayout(measures());
    EXPECT_EQ(layout.viewer.left + layout.viewer.width, measures().innerWidth);
}

TEST(Layout, GivesTheViewerTheWholeWidthOnTheSwitchToPictureMode)
{
    const shell::Extent before{4720, 540, 14480, 10100};
    EXPECT_EQ(shell::pictureLayoutOnSwitch(measures(), before),
              (shell::Extent{1, 540, 19200, 10100}));
}

TEST(Layout, LeavesTheWidthAloneWhenPictureModeIsResized)
{
    const shell::Extent before{1, 540, 12000, 10100};
    shell::WindowMeasures bigger = measures();
    bigger.innerWidth = 30000;
    bigger.innerHeight = 20000;
    bigger.coolBarHeight = 1080;
    EXPECT_EQ(shell::pictureLayoutOnResize(bigger, before), (shell::Extent{1, 1080, 12000, 18560}));
}

TEST(Layout, PutsThePanViewIntoTheUpperRightCorner)
{
    EXPECT_EQ(shell::panViewPlace(19200, 540), (shell::Extent{15600, 590, 3500, 3500}));
}

TEST(Layout, PutsTheZoomToolOverTheViewersLowerRightCorner)
{
    const shell::Extent viewer{4720, 540, 14480, 10100};
    EXPECT_EQ(shell::zoomToolPlace(viewer, 3900, 900), (shell::Extent{14820, 9260, 3900, 900}));
}
