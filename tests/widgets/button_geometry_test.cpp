#include "widgets/button_geometry.h"

#include <gtest/gtest.h>

using widgets::layOutButton;
using widgets::PicturePlace;
using widgets::shapeContains;
using widgets::shapeRegion;

namespace {

int pixelsOf(const QRegion& region)
{
    int pixels = 0;
    for (const QRect& part : region) {
        pixels += part.width() * part.height();
    }
    return pixels;
}

} // namespace

TEST(ButtonGeometry, PutsThePictureBesideTheCaption)
{
    const auto left = layOutButton({100, 40}, {30, 12}, {16, 16}, PicturePlace::Left);
    EXPECT_EQ(left.caption.left() - (left.picture.right() + 1), 4);
    EXPECT_EQ(left.picture, QRect(25, 12, 16, 16));
    EXPECT_EQ(left.caption, QRect(45, 14, 30, 12));

    const auto right = layOutButton({100, 40}, {30, 12}, {16, 16}, PicturePlace::Right);
    EXPECT_EQ(right.caption, QRect(25, 14, 30, 12));
    EXPECT_EQ(right.picture, QRect(59, 12, 16, 16));
}

TEST(ButtonGeometry, PutsThePictureAboveOrBelowTheCaption)
{
    const auto above = layOutButton({100, 60}, {30, 12}, {16, 16}, PicturePlace::Above);
    EXPECT_EQ(above.picture, QRect(42, 15, 16, 16));
    EXPECT_EQ(above.caption, QRect(35, 33, 30, 12));

    const auto below = layOutButton({100, 60}, {30, 12}, {16, 16}, PicturePlace::Below);
    EXPECT_EQ(below.caption, QRect(35, 15, 30, 12));
    EXPECT_EQ(below.picture, QRect(42, 29, 16, 16));
}

TEST(ButtonGeometry, CentresWhatStandsAloneOrBehind)
{
    const auto behind = layOutButton({100, 40}, {30, 12}, {16, 16}, PicturePlace::Behind);
    EXPECT_EQ(behind.picture, QRect(42, 12, 16, 16));
    EXPECT_EQ(behind.caption, QRect(35, 14, 30, 12));

    const auto picture = layOutButton({100, 40}, {0, 0}, {16, 16}, PicturePlace::Left);
    EXPECT_EQ(picture.picture, QRect(42, 12, 16, 16));
    EXPECT_TRUE(picture.caption.isEmpty());

    const auto caption = layOutButton({100, 40}, {30, 12}, {0, 0}, PicturePlace::Above);
    EXPECT_EQ(caption.caption, QRect(35, 14, 30, 12));
}

TEST(ButtonGeometry, LeavesTheCaptionTheRoomBesideThePicture)
{
    EXPECT_EQ(widgets::captionRoom({100, 40}, {16, 16}, PicturePlace::Left), 72);
    EXPECT_EQ(widgets::captionRoom({100, 40}, {16, 16}, PicturePlace::Above), 92);
    EXPECT_EQ(widgets::captionRoom({100, 40}, {0, 0}, PicturePlace::Left), 92);
    EXPECT_EQ(widgets::captionRoom({5, 5}, {16, 16}, PicturePlace::Left), 1);
}

TEST(ButtonGeometry, CutsTheCornersOfSomeTypes)
{
    const QSize size(30, 20);
    for (const int type : {1, 5, 14}) {
        const QRegion region = shapeRegion(type, size);
        EXPECT_EQ(pixelsOf(region), 600 - 4);
        EXPECT_FALSE(region.contains(QPoint(29, 19)));
        EXPECT_TRUE(region.contains(QPoint(28, 19)));
    }
    for (const int type : {3, 4}) {
        const QRegion region = shapeRegion(type, size);
        EXPECT_EQ(pixelsOf(region), 600 - 12);
        EXPECT_FALSE(region.contains(QPoint(1, 0)));
        EXPECT_FALSE(region.contains(QPoint(0, 18)));
        EXPECT_TRUE(region.contains(QPoint(1, 1)));
    }
    for (const int type : {2, 6, 7, 8, 9, 10, 11, 12}) {
        EXPECT_EQ(pixelsOf(shapeRegion(type, size)), 600);
    }
}

TEST(ButtonGeometry, HitsAnOvalInsideItsOutlineOnly)
{
    const QSize size(40, 20);
    EXPECT_TRUE(shapeContains(13, size, {20, 10}));
    EXPECT_TRUE(shapeContains(13, size, {0, 10}));
    EXPECT_TRUE(shapeContains(13, size, {20, 0}));
    EXPECT_FALSE(shapeContains(13, size, {1, 1}));
    EXPECT_FALSE(shapeContains(13, size, {38, 18}));
    EXPECT_FALSE(shapeContains(13, size, {20, 20}));
    EXPECT_FALSE(shapeContains(13, {0, 0}, {0, 0}));
    EXPECT_TRUE(shapeContains(2, size, {0, 0}));
    EXPECT_FALSE(shapeContains(1, size, {0, 0}));
}

TEST(ButtonGeometry, FindsTheAccessKeyBehindASingleMark)
{
    EXPECT_EQ(widgets::accessKeyOf("&Save"), QChar('S'));
    EXPECT_EQ(widgets::accessKeyOf("Cut && &Paste"), QChar('P'));
    EXPECT_EQ(widgets::accessKeyOf("Salt && Pepper"), QChar());
    EXPECT_EQ(widgets::accessKeyOf("Odd &"), QChar());
    EXPECT_EQ(widgets::accessKeyOf(""), QChar());
}
