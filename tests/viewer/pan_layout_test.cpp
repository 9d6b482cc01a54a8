#include "viewer/pan_layout.h"

#include <gtest/gtest.h>

namespace {

TEST(PanLayout, ShowsASmallPictureAtItsOwnSizeCentred)
{
    EXPECT_EQ(viewer::miniaturePlace({300, 300}, {200, 100}), QRect(50, 100, 200, 100));
}

TEST(PanLayout, ShrinksALargePictureByTheSideThatLimits)
{
    EXPECT_EQ(viewer::miniaturePlace({300, 300}, {600, 300}), QRect(0, 75, 300, 150));
    EXPECT_EQ(viewer::miniaturePlace({300, 300}, {300, 600}), QRect(75, 0, 150, 300));
    EXPECT_EQ(viewer::miniaturePlace({200, 100}, {30000, 10}).size(), QSize(200, 1));
}

TEST(PanLayout, MarksTheVisiblePart)
{
    const QRect miniature(0, 75, 300, 150);
    EXPECT_EQ(viewer::clipRectangle(miniature, {600, 300}, {{100, 50}, {200, 100}, 1}),
              QRect(50, 100, 100, 50));
    // At zoom 3 the same bar values and area stand for a third of the pixels.
    EXPECT_EQ(viewer::clipRectangle(miniature, {600, 300}, {{300, 150}, {600, 300}, 3}),
              QRect(50, 100, 100, 50));
    EXPECT_EQ(viewer::clipRectangle(miniature, {600, 300}, {{0, 0}, {600, 300}, 1}), miniature);
}

TEST(PanLayout, ConfinesThePointerSoThatTheRectangleStaysInside)
{
    const QRect miniature(0, 75, 300, 150);
    const QRect clip(50, 100, 100, 50);
    const QPoint pressed(60, 110);
    const QRect range = viewer::pointerRange(miniature, clip, pressed);
    EXPECT_EQ(range, QRect(10, 85, 201, 101));
    const QPoint farLeft = viewer::confined({-500, -500}, range);
    EXPECT_EQ(clip.translated(farLeft - pressed).topLeft(), miniature.topLeft());
    const QPoint farRight = viewer::confined({5000, 5000}, range);
    EXPECT_EQ(clip.translated(farRight - pressed).bottomRight(), miniature.bottomRight());
}

TEST(PanLayout, PinsThePointerWhereTheRectangleFillsTheMiniature)
{
    const QRect whole(0, 0, 300, 150);
    const QRect range = viewer::pointerRange(whole, whole.adjusted(0, 0, 1, 0), {20, 20});
    EXPECT_EQ(range, QRect(20, 20, 1, 1));
}

TEST(PanLayout, TurnsTheRectanglesPlaceIntoABarValue)
{
    // A miniature of half the picture's size: one pixel of the rectangle is two of the picture.
    EXPECT_EQ(viewer::barValueFor({0, 300, 10, 100}, 600, 1, 400), 20);
    EXPECT_EQ(viewer::barValueFor({0, 300, 10, 30}, 600, 3, 1600), 60);
    EXPECT_EQ(viewer::barValueFor({40, 300, 50, 100}, 600, 1, 400), 20);
}

TEST(PanLayout, LeavesTheBarForANegativeValueAndStopsItAtTheEdge)
{
    EXPECT_EQ(viewer::barValueFor({0, 300, -5, 100}, 600, 1, 400), std::nullopt);
    EXPECT_EQ(viewer::barValueFor({0, 300, 200, 100}, 600, 1, 397), 397);
    EXPECT_EQ(viewer::barValueFor({0, 300, 199, 100}, 600, 1, 390), 390);
}

} // namespace
