#include "acquire/scan_area.h"

#include <gtest/gtest.h>

using namespace acquire;

namespace {

const QRectF kBed(0, 0, 100, 200);
const QRectF kArea(20, 30, 40, 50);

} // namespace

TEST(ScanArea, IsTakenByItsSidesCornersAndInside)
{
    EXPECT_EQ(gripAt(kArea, {40, 50}, 5), kWholeArea);
    EXPECT_EQ(gripAt(kArea, {22, 50}, 5), (AreaGrip{true, false, false, false}));
    EXPECT_EQ(gripAt(kArea, {63, 83}, 5), (AreaGrip{false, false, true, true}));
    EXPECT_TRUE(gripAt(kArea, {10, 50}, 5).isNone());
    EXPECT_TRUE(gripAt(QRectF(), {0, 0}, 5).isNone());
    EXPECT_EQ(gripAt(QRectF(20, 30, 2, 2), {21, 31}, 5), (AreaGrip{false, false, true, true}));
}

TEST(ScanArea, MovesInsideTheBed)
{
    EXPECT_EQ(dragged(kArea, kWholeArea, {5, -10}, kBed), kArea.translated(5, -10));
    EXPECT_EQ(dragged(kArea, kWholeArea, {-500, 500}, kBed), QRectF(0, 150, 40, 50));
}

TEST(ScanArea, IsResizedInsideTheBed)
{
    const AreaGrip corner{false, false, true, true};
    EXPECT_EQ(dragged(kArea, corner, {10, 20}, kBed), QRectF(20, 30, 50, 70));
    EXPECT_EQ(dragged(kArea, corner, {500, 500}, kBed), QRectF(20, 30, 80, 170));
    EXPECT_EQ(dragged(kArea, {true, false, false, false}, {60, 0}, kBed), QRectF(60, 30, 20, 50));
}

TEST(ScanArea, GoesFromOneSystemToTheOther)
{
    const QRectF place = fittedInto(QRectF(0, 0, 300, 200), kBed.size());
    EXPECT_EQ(place, QRectF(100, 0, 100, 200));
    EXPECT_EQ(mapped(kArea, kBed, QRectF(10, 0, 50, 100)), QRectF(20, 15, 20, 25));
}
