#include "viewer/viewer_layout.h"

#include <gtest/gtest.h>

namespace {

using viewer::BarMode;
using viewer::BothWays;
using viewer::LayoutRequest;
using viewer::ViewerLayout;

LayoutRequest request(QSize control, QSize picture, int zoom = 1)
{
    LayoutRequest made;
    made.control = control;
    made.picture = picture;
    made.zoom = zoom;
    return made;
}

constexpr BothWays kBoth{true, true};
constexpr BothWays kNone{false, false};

TEST(ViewerLayout, GivesALargePictureBothBarsAndTheRoomBesideThem)
{
    const ViewerLayout layout = viewer::layoutViewer(request({400, 300}, {1000, 800}));
    EXPECT_EQ(layout.need, kBoth);
    EXPECT_EQ(layout.barsVisible, kBoth);
    EXPECT_TRUE(layout.cornerVisible);
    EXPECT_EQ(layout.iDst, QRect(0, 0, 385, 285));
    EXPECT_EQ(layout.hMaximum, 615);
    EXPECT_EQ(layout.vMaximum, 515);
    EXPECT_EQ(layout.hSB, QRect(0, 285, 385, 15));
    EXPECT_EQ(layout.vSB, QRect(385, 0, 15, 285));
    EXPECT_EQ(layout.corner, QRect(385, 285, 15, 15));
}

TEST(ViewerLayout, CentresASmallPictureWithoutBars)
{
    const ViewerLayout layout = viewer::layoutViewer(request({400, 300}, {100, 50}));
    EXPECT_EQ(layout.barsVisible, kNone);
    EXPECT_FALSE(layout.cornerVisible);
    EXPECT_EQ(layout.iDst, QRect(150, 125, 100, 50));
    EXPECT_EQ(layout.hMaximum, 0);
    EXPECT_EQ(layout.vMaximum, 0);
}

TEST(ViewerLayout, RoundsTheOffsetsOfASmallPictureDown)
{
    EXPECT_EQ(viewer::layoutViewer(request({400, 300}, {101, 51})).iDst, QRect(149, 124, 101, 51));
}

TEST(ViewerLayout, SeesThatOneBarTakesTheOthersRoom)
{
    const ViewerLayout layout = viewer::layoutViewer(request({400, 300}, {400, 310}));
    EXPECT_EQ(layout.barsVisible, kBoth);
    EXPECT_EQ(layout.iDst, QRect(0, 0, 385, 285));
    EXPECT_EQ(layout.hMaximum, 15);
    EXPECT_EQ(layout.vMaximum, 25);
}

TEST(ViewerLayout, ShowsOneBarAndCentresTheOtherWayInItsRoom)
{
    const ViewerLayout layout = viewer::layoutViewer(request({400, 300}, {100, 310}));
    EXPECT_EQ(layout.barsVisible, (BothWays{false, true}));
    EXPECT_EQ(layout.iDst, QRect(142, 0, 100, 300));
    EXPECT_EQ(layout.vSB, QRect(385, 0, 15, 300));
    EXPECT_EQ(layout.vMaximum, 10);
}

TEST(ViewerLayout, KeepsTheBarsOfAnExactFitThatWereVisibleBefore)
{
    LayoutRequest fits = request({400, 300}, {400, 300});
    EXPECT_EQ(viewer::layoutViewer(fits).barsVisible, kNone);
    fits.barsVisible = kBoth;
    EXPECT_EQ(viewer::layoutViewer(fits).barsVisible, kBoth);
}

TEST(ViewerLayout, NeverGivesANegativeMaximum)
{
    LayoutRequest loose = request({400, 300}, {390, 100});
    loose.barsVisible = kBoth;
    const ViewerLayout layout = viewer::layoutViewer(loose);
    EXPECT_EQ(layout.barsVisible, (BothWays{true, false}));
    EXPECT_EQ(layout.hMaximum, 0);
}

TEST(ViewerLayout, KeepsTheCornerWhenABarGoesUntilAnotherModeHidesIt)
{
    LayoutRequest small = request({400, 300}, {100, 50});
    small.cornerVisible = true;
    EXPECT_TRUE(viewer::layoutViewer(small).cornerVisible);
    small.barMode = BarMode::Never;
    EXPECT_FALSE(viewer::layoutViewer(small).cornerVisible);
    small.barMode = BarMode::WhenNeeded;
    small.bestFit = true;
    EXPECT_FALSE(viewer::layoutViewer(small).cornerVisible);
}

TEST(ViewerLayout, HidesTheBarsInModeNeverButKeepsTheirRange)
{
    LayoutRequest hidden = request({400, 300}, {1000, 800});
    hidden.barMode = BarMode::Never;
    const ViewerLayout layout = viewer::layoutViewer(hidden);
    EXPECT_EQ(layout.barsVisible, kNone);
    EXPECT_EQ(layout.need, kBoth);
    EXPECT_EQ(layout.iDst, QRect(0, 0, 400, 300));
    EXPECT_EQ(layout.hMaximum, 600);
    EXPECT_EQ(layout.vMaximum, 500);
}

TEST(ViewerLayout, LeavesTheBarsAsTheyAreInAnUnknownMode)
{
    LayoutRequest odd = request({400, 300}, {1000, 800});
    odd.barMode = static_cast<BarMode>(2);
    odd.barsVisible = {false, true};
    EXPECT_EQ(viewer::layoutViewer(odd).barsVisible, (BothWays{false, true}));
}

TEST(ViewerLayout, FitsTheWholePictureAtAnyZoom)
{
    for (const int zoom : {1, 7, 15}) {
        LayoutRequest fit = request({400, 300}, {100, 100}, zoom);
        fit.bestFit = true;
        fit.barsVisible = kBoth;
        const ViewerLayout layout = viewer::layoutViewer(fit);
        EXPECT_EQ(layout.iDst, QRect(50, 0, 300, 300)) << zoom;
        EXPECT_EQ(layout.barsVisible, kNone) << zoom;
        EXPECT_EQ(layout.hMaximum, 0) << zoom;
    }
}

TEST(ViewerLayout, FitsByTheSideThatLimits)
{
    LayoutRequest fit = request({400, 300}, {800, 200});
    fit.bestFit = true;
    EXPECT_EQ(viewer::layoutViewer(fit).iDst, QRect(0, 100, 400, 100));
    fit.picture = {400, 300};
    EXPECT_EQ(viewer::layoutViewer(fit).iDst, QRect(0, 0, 400, 300));
    fit.picture = {30000, 2};
    EXPECT_EQ(viewer::layoutViewer(fit).iDst, QRect(0, 149, 400, 1));
}

TEST(ViewerLayout, RefusesWhatZoomsBeyond16Bits)
{
    EXPECT_TRUE(viewer::exceedsZoomLimit({3000, 10}, 11));
    EXPECT_FALSE(viewer::exceedsZoomLimit({3000, 10}, 10));
    EXPECT_TRUE(viewer::exceedsZoomLimit({10, 32768}, 1));
    EXPECT_FALSE(viewer::exceedsZoomLimit({10, 32767}, 1));
    EXPECT_TRUE(viewer::exceedsZoomLimit({2147483647, 1}, 15));
}

TEST(ViewerLayout, EnlargesAControlBelowTwoBars)
{
    EXPECT_EQ(viewer::enlargedControl({30, 30}, 15), std::nullopt);
    EXPECT_EQ(viewer::enlargedControl({29, 100}, 15), QSize(30, 100));
    EXPECT_EQ(viewer::enlargedControl({100, 3}, 20), QSize(100, 40));
}

TEST(ViewerLayout, CentresOrKeepsTheSpotInProportion)
{
    EXPECT_EQ(viewer::valueAfterLayout(true, 600, {100, 200}, 1), 300);
    EXPECT_EQ(viewer::valueAfterLayout(true, 600, {100, 200}, 2), 300);
    EXPECT_EQ(viewer::valueAfterLayout(true, 600, {50, 200}, 2), 150);
    EXPECT_EQ(viewer::valueAfterLayout(true, 600, {0, 0}, 2), 300);
    EXPECT_EQ(viewer::valueAfterLayout(false, 0, {50, 200}, 2), 0);
    EXPECT_EQ(viewer::valueAfterLayout(true, 600, {200, 200}, 15), 600);
    // Half pixels go to the even side.
    EXPECT_EQ(viewer::valueAfterLayout(true, 613, {}, 1), 306);
    EXPECT_EQ(viewer::valueAfterLayout(true, 615, {}, 1), 308);
    EXPECT_EQ(viewer::valueAfterLayout(true, 1, {}, 1), 0);
}

TEST(ViewerLayout, StepsByTheZoomAndAtLeastByOne)
{
    EXPECT_EQ(viewer::scrollStep(10, 3), 30);
    EXPECT_EQ(viewer::scrollStep(0, 15), 1);
    EXPECT_EQ(viewer::scrollStep(-5, 2), 1);
    EXPECT_EQ(viewer::scrolledToStart(10, 10), 0);
    EXPECT_EQ(viewer::scrolledToStart(12, 10), 2);
    EXPECT_EQ(viewer::scrolledToEnd(90, 9, 100), 99);
    EXPECT_EQ(viewer::scrolledToEnd(90, 30, 100), 100);
    EXPECT_EQ(viewer::loopedToStart(5, 10, 100), 100);
    EXPECT_EQ(viewer::loopedToStart(15, 10, 100), 5);
    EXPECT_EQ(viewer::loopedToEnd(100, 1, 100), 0);
    EXPECT_EQ(viewer::loopedToEnd(50, 10, 100), 60);
}

TEST(ViewerLayout, StopsADragAtBothEnds)
{
    EXPECT_EQ(viewer::draggedValue(50, 100, 20), 30);
    EXPECT_EQ(viewer::draggedValue(50, 100, -20), 70);
    EXPECT_EQ(viewer::draggedValue(50, 100, 50), 0);
    EXPECT_EQ(viewer::draggedValue(50, 100, 500), 0);
    EXPECT_EQ(viewer::draggedValue(50, 100, -50), 100);
    EXPECT_EQ(viewer::draggedValue(50, 100, -500), 100);
    EXPECT_EQ(viewer::draggedValue(50, 100, 0), 50);
}

TEST(ViewerLayout, FindsThePixelInTheMiddleAndTheWayBack)
{
    // 500 pixels in 400: half of 400, and what is scrolled away.
    EXPECT_EQ(viewer::centrePixel(400, 500, 1, 40), 240);
    EXPECT_EQ(viewer::centrePixel(400, 500, 2, 0), 100);
    // A smaller picture: the gap doesn't count.
    EXPECT_EQ(viewer::centrePixel(400, 100, 1, 0), 50);
    // 201.5 is rounded to the even 202 before it is divided.
    EXPECT_EQ(viewer::centrePixel(403, 500, 2, 0), 101);
    EXPECT_EQ(viewer::valueForCentre(240, 400, 1, 100), 40);
    EXPECT_EQ(viewer::valueForCentre(10, 400, 1, 100), 0);
    EXPECT_EQ(viewer::valueForCentre(900, 400, 3, 100), 100);
}

TEST(ViewerLayout, ReportsThePixelUnderAPlace)
{
    EXPECT_EQ(viewer::pixelAt(7, 4, 3), 3);
    EXPECT_EQ(viewer::pixelAt(0, 0, 15), 0);
    EXPECT_EQ(viewer::pixelAt(32000, 2000, 1), 32767);
}

TEST(ViewerLayout, PaintsWholePixelsFromANegativeOffset)
{
    const viewer::Span span = viewer::paintSpan(true, 100, 3, 385, 1000);
    EXPECT_EQ(span.source, 33);
    EXPECT_EQ(span.destination, -1);
    EXPECT_EQ(span.sourceLength, 130);
    EXPECT_EQ(span.destinationLength, 390);
    const viewer::Span whole = viewer::paintSpan(false, 0, 3, 90, 30);
    EXPECT_EQ(whole.sourceLength, 30);
    EXPECT_EQ(whole.destinationLength, 90);
}

TEST(ViewerLayout, CutsTheSparePixelBehindThePicturesEnd)
{
    const viewer::Span span = viewer::cutToPicture(viewer::paintSpan(true, 10, 5, 40, 10), 5, 10);
    EXPECT_EQ(span.source, 2);
    EXPECT_EQ(span.sourceLength, 8);
    EXPECT_EQ(span.destinationLength, 40);
}

} // namespace
