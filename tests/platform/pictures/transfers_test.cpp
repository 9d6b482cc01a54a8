#include "platform/pictures/transfers.h"

#include "platform/pictures/test_images.h"

#include <gtest/gtest.h>

using platform::Area;
using platform::BitBlt;
using platform::StretchBlt;
using platform::StretchMode;
using test::expectPixels;
using test::filled;
using test::greys;
using test::imageOf;
using test::numbered;

namespace {

constexpr QRgb kBlank = 0xFF123456;

Area wholeOf(const QImage& image)
{
    return {0, 0, image.width(), image.height()};
}

QImage stretchedTo(int width, int height, const QImage& source, Area sourceArea,
                   StretchMode mode = StretchMode::HalfTone)
{
    QImage target = filled(width, height, kBlank);
    EXPECT_TRUE(StretchBlt(target, wholeOf(target), source, sourceArea, mode));
    return target;
}

} // namespace

TEST(BitBlt, CopiesAPart)
{
    const QImage source = numbered(8, 6);
    QImage target = filled(5, 5, kBlank);
    EXPECT_TRUE(BitBlt(target, 1, 2, 3, 2, source, 4, 3));
    expectPixels(target, imageOf(5, 5, [&](int x, int y) {
                     const bool inside = x >= 1 && x < 4 && y >= 2 && y < 4;
                     return inside ? source.pixel(x + 3, y + 1) : kBlank;
                 }));
}

TEST(BitBlt, CutsAtBothSurfaces)
{
    const QImage source = numbered(4, 4);
    QImage target = filled(4, 4, kBlank);
    EXPECT_TRUE(BitBlt(target, -2, -1, 10, 10, source, -1, 2));
    expectPixels(target, imageOf(4, 4, [&](int x, int y) {
                     const int fromX = x + 1;
                     const int fromY = y + 3;
                     return fromX < 4 && fromY < 4 ? source.pixel(fromX, fromY) : kBlank;
                 }));
}

TEST(BitBlt, MovesPixelsInsideOneSurface)
{
    const QImage before = numbered(6, 6);
    QImage image = before;
    EXPECT_TRUE(BitBlt(image, 1, 1, 5, 5, image, 0, 0));
    expectPixels(image, imageOf(6, 6, [&](int x, int y) {
                     return x > 0 && y > 0 ? before.pixel(x - 1, y - 1) : before.pixel(x, y);
                 }));
}

TEST(StretchBlt, RefusesEmptyAreasAndSurfaces)
{
    const QImage source = numbered(4, 4);
    QImage target = filled(4, 4, kBlank);
    QImage none;
    EXPECT_FALSE(StretchBlt(target, {0, 0, 0, 4}, source, {0, 0, 4, 4}));
    EXPECT_FALSE(StretchBlt(target, {0, 0, 4, 4}, source, {0, 0, 4, 0}));
    EXPECT_FALSE(StretchBlt(target, {0, 0, 4, 4}, none, {0, 0, 4, 4}));
    EXPECT_FALSE(StretchBlt(none, {0, 0, 4, 4}, source, {0, 0, 4, 4}));
    expectPixels(target, filled(4, 4, kBlank));
}

TEST(StretchBlt, CopiesOneToOne)
{
    const QImage source = numbered(13, 7);
    expectPixels(stretchedTo(13, 7, source, wholeOf(source)), source);
}

TEST(StretchBlt, FlipsExactly)
{
    const QImage source = numbered(9, 5);
    expectPixels(stretchedTo(9, 5, source, {0, 4, 9, -5}), source.mirrored(false, true));
    expectPixels(stretchedTo(9, 5, source, {8, 0, -9, 5}), source.mirrored(true, false));
    expectPixels(stretchedTo(9, 5, source, {8, 4, -9, -5}), source.mirrored(true, true));
}

TEST(StretchBlt, FlipsASurfaceOntoItself)
{
    const QImage before = numbered(8, 6);
    QImage image = before;
    const QImage shared = image;
    EXPECT_TRUE(StretchBlt(image, wholeOf(image), image, {0, 5, 8, -6}));
    expectPixels(image, before.mirrored(false, true));
    expectPixels(shared, before);
    EXPECT_TRUE(StretchBlt(image, wholeOf(image), image, {0, 5, 8, -6}));
    expectPixels(image, before);
    image.detach();
    EXPECT_TRUE(StretchBlt(image, wholeOf(image), image, {7, 0, -8, 6}));
    expectPixels(image, before.mirrored(true, false));
}

TEST(StretchBlt, DrawsLeftwardsAndUpwardsForNegativeTargets)
{
    const QImage source = numbered(3, 2);
    QImage target = filled(5, 4, kBlank);
    EXPECT_TRUE(StretchBlt(target, {4, 3, -3, -2}, source, wholeOf(source)));
    expectPixels(target, imageOf(5, 4, [&](int x, int y) {
                     return x >= 2 && y >= 2 ? source.pixel(4 - x, 3 - y) : kBlank;
                 }));
}

TEST(StretchBlt, IsUprightWhenBothAreasRunBackwards)
{
    const QImage source = numbered(3, 2);
    QImage target = filled(3, 2, kBlank);
    EXPECT_TRUE(StretchBlt(target, {2, 1, -3, -2}, source, {2, 1, -3, -2}));
    expectPixels(target, source);
}

TEST(StretchBlt, RepeatsPixelsAtWholeFactors)
{
    const QImage source = numbered(4, 3);
    expectPixels(stretchedTo(20, 6, source, wholeOf(source)),
                 imageOf(20, 6, [&](int x, int y) { return source.pixel(x / 5, y / 2); }));
    expectPixels(stretchedTo(12, 9, source, {3, 2, -4, -3}),
                 imageOf(12, 9, [&](int x, int y) { return source.pixel(3 - x / 3, 2 - y / 3); }));
}

TEST(StretchBlt, KeepsTheScaleWhereTheTargetIsCut)
{
    const QImage source = numbered(10, 10);
    QImage target = filled(7, 5, kBlank);
    EXPECT_TRUE(StretchBlt(target, {-2, -1, 30, 30}, source, wholeOf(source)));
    expectPixels(target, imageOf(7, 5, [&](int x, int y) {
                     return source.pixel((x + 2) / 3, (y + 1) / 3);
                 }));
}

TEST(StretchBlt, KeepsTheScaleWhereTheSourceIsCut)
{
    const QImage source = numbered(4, 4);
    QImage target = filled(12, 12, kBlank);
    EXPECT_TRUE(StretchBlt(target, wholeOf(target), source, {2, -1, 4, 4}));
    expectPixels(target, imageOf(12, 12, [&](int x, int y) {
                     const int fromX = 2 + x / 3;
                     const int fromY = y / 3 - 1;
                     return fromX < 4 && fromY >= 0 ? source.pixel(fromX, fromY) : kBlank;
                 }));
}

TEST(StretchBlt, AveragesWhenShrinking)
{
    const QImage board = imageOf(
        8, 8, [](int x, int y) { return (x + y) % 2 ? qRgb(255, 255, 255) : qRgb(0, 0, 0); });
    expectPixels(stretchedTo(4, 4, board, wholeOf(board)), filled(4, 4, qRgb(128, 128, 128)));
}

TEST(StretchBlt, WeighsPartlyCoveredPixels)
{
    // Each target pixel covers one and a half: (2*60 + 1*120) / 3 and (1*120 + 2*240) / 3.
    expectPixels(stretchedTo(2, 1, greys({60, 120, 240}), {0, 0, 3, 1}), greys({80, 200}));
    expectPixels(stretchedTo(2, 1, greys({60, 120, 240}), {2, 0, -3, 1}), greys({200, 80}));
}

TEST(StretchBlt, AveragesEachChannelForItself)
{
    const QImage source =
        imageOf(2, 1, [](int x, int) { return x ? qRgb(10, 0, 200) : qRgb(30, 100, 0); });
    expectPixels(stretchedTo(1, 1, source, wholeOf(source)), filled(1, 1, qRgb(20, 50, 100)));
}

TEST(StretchBlt, AveragesLongRunsExactly)
{
    const QImage white = filled(3, 2000, qRgb(255, 255, 255));
    expectPixels(stretchedTo(1, 1, white, wholeOf(white)), filled(1, 1, qRgb(255, 255, 255)));
    const QImage colour = filled(701, 997, qRgb(3, 129, 254));
    expectPixels(stretchedTo(17, 13, colour, wholeOf(colour)), filled(17, 13, qRgb(3, 129, 254)));
}

TEST(StretchBlt, AveragesOnlyInsideTheSource)
{
    expectPixels(stretchedTo(2, 1, greys({100, 100, 100}), {0, 0, 4, 1}), greys({100, 100}));
}

TEST(StretchBlt, ShrinksOneWayAndEnlargesTheOther)
{
    const QImage source = greys({0, 100, 200, 250});
    expectPixels(stretchedTo(2, 3, source, wholeOf(source)), imageOf(2, 3, [](int x, int) {
                     return x ? qRgb(225, 225, 225) : qRgb(50, 50, 50);
                 }));
}

TEST(StretchBlt, BlendsNeighboursAtOtherFactors)
{
    // The middles of five target pixels lie at -0.1, 0.3, 0.7 ... of a two-pixel source's middles.
    expectPixels(stretchedTo(5, 1, greys({0, 100}), {0, 0, 2, 1}), greys({0, 10, 50, 90, 100}));
}

TEST(StretchBlt, LeavesOutPixelsWithoutAveraging)
{
    const QImage source = numbered(9, 9);
    expectPixels(stretchedTo(3, 3, source, wholeOf(source), StretchMode::ColorOnColor),
                 imageOf(3, 3, [&](int x, int y) { return source.pixel(x * 3 + 1, y * 3 + 1); }));
}

TEST(StretchBlt, LandsOverWhiteOnAnOpaqueTarget)
{
    QImage source(1, 1, QImage::Format_ARGB32_Premultiplied);
    source.fill(Qt::transparent);
    QImage target = filled(1, 1, kBlank);
    EXPECT_TRUE(StretchBlt(target, wholeOf(target), source, wholeOf(source)));
    EXPECT_EQ(target.pixel(0, 0), qRgb(255, 255, 255));
}

TEST(StretchBlt, CopesWithExtremeAreas)
{
    constexpr int kFar = 2147483647;
    const QImage source = numbered(4, 4);
    QImage target = filled(4, 4, kBlank);
    EXPECT_TRUE(StretchBlt(target, {-kFar, -kFar, kFar, kFar}, source, wholeOf(source)));
    EXPECT_TRUE(StretchBlt(target, {kFar, kFar, kFar, kFar}, source, {kFar, kFar, kFar, kFar}));
    expectPixels(target, filled(4, 4, kBlank));
    EXPECT_TRUE(StretchBlt(target, {-5, -5, kFar, kFar}, source, wholeOf(source)));
    expectPixels(target, filled(4, 4, source.pixel(0, 0)));
}

TEST(Stretched, MakesAnAveragedCopyOfItsSize)
{
    const QImage source = greys({0, 50, 100, 200});
    expectPixels(platform::stretched(source, wholeOf(source), {2, 1}), greys({25, 150}));
    EXPECT_TRUE(platform::stretched(source, wholeOf(source), {0, 1}).isNull());
    EXPECT_TRUE(platform::stretched(QImage(), {0, 0, 1, 1}, {1, 1}).isNull());
}

TEST(StretchBlt, RefusesSidesThatTakeMoreMemoryThanTheirPixels)
{
    constexpr int kLong = (1 << 22) + 1;
    for (const QSize size : {QSize(kLong, 1), QSize(1, kLong)}) {
        const QImage source = filled(size.width(), size.height(), qRgb(1, 2, 3));
        QImage target = filled(size.width(), size.height(), qRgb(4, 5, 6));
        const Area all{0, 0, size.width(), size.height()};
        EXPECT_FALSE(StretchBlt(target, all, source, all));
        EXPECT_EQ(target.pixel(0, 0), qRgb(4, 5, 6));
    }
    const QImage source = filled(kLong, 1, qRgb(1, 2, 3));
    QImage target = filled(60, 1, qRgb(4, 5, 6));
    EXPECT_FALSE(StretchBlt(target, {0, 0, 60, 1}, source, {0, 0, kLong, 1}));
    EXPECT_TRUE(StretchBlt(target, {0, 0, 60, 1}, source, {0, 0, 60, 1}));
    EXPECT_EQ(target.pixel(59, 0), qRgb(1, 2, 3));
}
