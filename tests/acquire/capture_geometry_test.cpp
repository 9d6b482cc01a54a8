#include "acquire/capture_geometry.h"

#include <gtest/gtest.h>

namespace {

using acquire::rectangleBetween;
using acquire::sizeTextColour;
using acquire::sizeTextPlace;

constexpr base::Colour kBlack = base::rgb(0, 0, 0);
constexpr base::Colour kWhite = base::rgb(255, 255, 255);

} // namespace

TEST(CaptureGeometry, TakesTheCornersInAnyOrder)
{
    const QRect expected(10, 20, 30, 40);
    EXPECT_EQ(rectangleBetween({10, 20}, {40, 60}), expected);
    EXPECT_EQ(rectangleBetween({40, 60}, {10, 20}), expected);
    EXPECT_EQ(rectangleBetween({40, 20}, {10, 60}), expected);
    EXPECT_EQ(rectangleBetween({10, 60}, {40, 20}), expected);
}

TEST(CaptureGeometry, HasNothingBetweenCornersOnOneLine)
{
    EXPECT_TRUE(rectangleBetween({10, 20}, {10, 20}).isEmpty());
    EXPECT_TRUE(rectangleBetween({10, 20}, {50, 20}).isEmpty());
    EXPECT_TRUE(rectangleBetween({10, 20}, {10, 50}).isEmpty());
    EXPECT_EQ(rectangleBetween({10, 20}, {11, 21}).size(), QSize(1, 1));
}

TEST(CaptureGeometry, NamesTheSize)
{
    EXPECT_EQ(acquire::sizeTextOf({120, 80}), QStringLiteral("120x80"));
    EXPECT_EQ(acquire::sizeTextOf({1, 2560}), QStringLiteral("1x2560"));
}

TEST(CaptureGeometry, CentresTheTextInARectangleLargerThanIt)
{
    EXPECT_EQ(sizeTextPlace({100, 200, 80, 40}, {40, 10}), QPoint(120, 215));
    EXPECT_EQ(sizeTextPlace({100, 200, 41, 11}, {40, 10}), QPoint(100, 200));
    EXPECT_EQ(sizeTextPlace({100, 200, 40, 11}, {40, 10}), std::nullopt);
    EXPECT_EQ(sizeTextPlace({100, 200, 41, 10}, {40, 10}), std::nullopt);
}

TEST(CaptureGeometry, RoundsHalfPixelsToTheEvenOne)
{
    EXPECT_EQ(sizeTextPlace({100, 201, 43, 13}, {40, 10}), QPoint(102, 202));
    EXPECT_EQ(acquire::middleOf({100, 201, 3, 3}), QPoint(102, 202));
    EXPECT_EQ(acquire::middleOf({100, 201, 4, 4}), QPoint(102, 203));
}

TEST(CaptureGeometry, WritesInBlackFromTheMiddleOfItsScaleUp)
{
    EXPECT_EQ(sizeTextColour(kBlack), kWhite);
    EXPECT_EQ(sizeTextColour(31127), kWhite);
    EXPECT_EQ(sizeTextColour(31128), kBlack);
    EXPECT_EQ(sizeTextColour(base::rgb(255, 121, 0)), kBlack);
    EXPECT_EQ(sizeTextColour(base::rgb(151, 121, 0)), kWhite);
    EXPECT_EQ(sizeTextColour(base::rgb(255, 0, 0)), kWhite);
    EXPECT_EQ(sizeTextColour(base::rgb(0, 0, 1)), kBlack);
    EXPECT_EQ(sizeTextColour(kWhite), kBlack);
}
