#include "widgets/slider_scale.h"

#include <array>
#include <gtest/gtest.h>
#include <limits>

using widgets::SliderAxis;
using widgets::SliderScale;

namespace {

SliderScale scaleOf(int minimum, int maximum, int travel, SliderAxis axis)
{
    return {minimum, maximum, travel, axis};
}

} // namespace

TEST(SliderScale, PlacesValuesFrom5To35Over200Pixels)
{
    const SliderScale lying = scaleOf(5, 35, 200, SliderAxis::Horizontal);
    const SliderScale standing = scaleOf(5, 35, 200, SliderAxis::Vertical);
    struct Place {
        int value, position;
    };
    for (const Place place : {Place{5, 0}, Place{6, 7}, Place{7, 13}, Place{8, 20}, Place{20, 100},
                              Place{34, 193}, Place{35, 200}}) {
        EXPECT_EQ(lying.knobPosition(place.value), place.position);
        EXPECT_EQ(standing.knobPosition(place.value), 200 - place.position);
    }
}

TEST(SliderScale, ReadsPlacesFrom5To35Over200Pixels)
{
    const SliderScale lying = scaleOf(5, 35, 200, SliderAxis::Horizontal);
    const SliderScale standing = scaleOf(5, 35, 200, SliderAxis::Vertical);
    struct Reading {
        int position, value;
    };
    for (const Reading reading : {Reading{0, 5}, Reading{3, 5}, Reading{4, 6}, Reading{100, 20},
                                  Reading{196, 34}, Reading{197, 35}, Reading{200, 35}}) {
        EXPECT_EQ(lying.valueAt(reading.position), reading.value);
        EXPECT_EQ(standing.valueAt(200 - reading.position), reading.value);
    }
}

TEST(SliderScale, RoundsHalvesToEven)
{
    const SliderScale placing = scaleOf(0, 4, 10, SliderAxis::Horizontal);
    EXPECT_EQ(placing.knobPosition(1), 2); // 2.5
    EXPECT_EQ(placing.knobPosition(3), 8); // 7.5
    const SliderScale reading = scaleOf(0, 10, 4, SliderAxis::Horizontal);
    EXPECT_EQ(reading.valueAt(1), 2);
    EXPECT_EQ(reading.valueAt(3), 8);
}

TEST(SliderScale, IsSafeWithoutTravelAndAtTheEndsOfItsNumbers)
{
    const SliderScale none = scaleOf(3, 9, 0, SliderAxis::Vertical);
    EXPECT_EQ(none.knobPosition(9), 0);
    EXPECT_EQ(none.valueAt(5), 3);
    constexpr int kLowest = std::numeric_limits<int>::min();
    constexpr int kHighest = std::numeric_limits<int>::max();
    const SliderScale widest = scaleOf(kLowest, kHighest, 100, SliderAxis::Horizontal);
    EXPECT_EQ(widest.knobPosition(kHighest), 100);
    EXPECT_EQ(widest.knobPosition(kLowest), 0);
    EXPECT_EQ(widest.valueAt(100), kHighest);
    EXPECT_EQ(widest.valueAt(0), kLowest);
    EXPECT_EQ(scaleOf(0, 10, 100, SliderAxis::Horizontal).knobPosition(50), 100);
}
