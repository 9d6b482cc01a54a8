#include "thumbs/picture_fit.h"

#include <gtest/gtest.h>

using thumbs::fitPicture;
using thumbs::pictureOffset;

TEST(PictureFit, ShrinksButNeverEnlarges)
{
    EXPECT_EQ(fitPicture({100, 100}, {60, 60}), QSize(60, 60));
    EXPECT_EQ(fitPicture({30, 30}, {60, 60}), QSize(30, 30));
    EXPECT_EQ(fitPicture({300, 60}, {60, 60}), QSize(60, 12));
    EXPECT_EQ(fitPicture({60, 300}, {60, 60}), QSize(12, 60));
    EXPECT_EQ(fitPicture({4000, 3000}, {60, 60}), QSize(60, 45));
}

TEST(PictureFit, LetsTallPicturesUseAnExtraHeight)
{
    EXPECT_EQ(fitPicture({60, 300}, {60, 80}), QSize(16, 80));
}

TEST(PictureFit, RoundsHalvesToEven)
{
    EXPECT_EQ(fitPicture({120, 5}, {60, 60}), QSize(60, 2)); // 2.5
    EXPECT_EQ(fitPicture({120, 7}, {60, 60}), QSize(60, 4)); // 3.5
    EXPECT_EQ(fitPicture({5, 120}, {60, 60}), QSize(2, 60));
}

TEST(PictureFit, LeavesNothingOfAThread)
{
    EXPECT_EQ(fitPicture({10000, 10}, {60, 60}), QSize(60, 0));
    EXPECT_EQ(fitPicture({10, 10000}, {60, 60}), QSize(0, 60));
}

TEST(PictureFit, KeepsALengthThatSixteenBitsCannotHold)
{
    // 60 * 200000 / 61 doesn't fit; the second step then starts from the full height.
    EXPECT_EQ(fitPicture({61, 200000}, {60, 60}), QSize(0, 60));
    EXPECT_EQ(fitPicture({61, 200000}, {60, 300000}), QSize(60, 200000));
}

TEST(PictureFit, CentresWithHalfPixels)
{
    EXPECT_EQ(pictureOffset({70, 70}, {60, 60}), QPointF(5, 5));
    EXPECT_EQ(pictureOffset({70, 70}, {30, 30}), QPointF(20, 20));
    EXPECT_EQ(pictureOffset({70, 70}, {60, 12}), QPointF(5, 29));
    EXPECT_EQ(pictureOffset({70, 70}, {60, 45}), QPointF(5, 12.5));
}
