#include "platform/pictures/transfers.h"

#include "platform/pictures/test_images.h"

#include <QPainter>
#include <cmath>
#include <gtest/gtest.h>

using platform::Area;
using platform::StretchBlt;
using test::expectPixels;
using test::filled;
using test::imageOf;
using test::numbered;

namespace {

constexpr QRgb kBlank = 0xFF123456;
constexpr double kSlack = 0.01; // picture pixels

// A device of that many device-independent pixels.
QImage deviceOf(int width, int height, double ratio)
{
    QImage device(int(std::lround(width * ratio)), int(std::lround(height * ratio)),
                  QImage::Format_RGB32);
    device.fill(kBlank);
    device.setDevicePixelRatio(ratio);
    return device;
}

QImage painted(QImage device, Area target, const QImage& source, Area sourceArea)
{
    QPainter painter(&device);
    EXPECT_TRUE(StretchBlt(painter, target, source, sourceArea));
    painter.end();
    device.setDevicePixelRatio(1);
    return device;
}

} // namespace

TEST(StretchBltToPainter, ShowsAScrolledViewSharplyAtEveryRatio)
{
    const QImage source = numbered(200, 150);
    constexpr int kScrolledX = 37;
    constexpr int kScrolledY = 23;
    for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
        for (const int zoom : {1, 2, 3, 5, 15}) {
            const Area target{-(kScrolledX % zoom), -(kScrolledY % zoom),
                              101 / zoom * zoom + 2 * zoom, 67 / zoom * zoom + 2 * zoom};
            const Area from{kScrolledX / zoom, kScrolledY / zoom, 101 / zoom + 2, 67 / zoom + 2};
            const QImage shown = painted(deviceOf(101, 67, ratio), target, source, from);
            // A device pixel whose middle lies on a border may show either side of it.
            const auto place = [&](int device, int scrolled, double slack) {
                return int(std::floor(((device + 0.5) / ratio + scrolled) / zoom + slack));
            };
            const auto isPixel = [&](int x, int y, double slackX, double slackY) {
                return shown.pixel(x, y) ==
                       source.pixel(place(x, kScrolledX, slackX), place(y, kScrolledY, slackY));
            };
            for (int y = 0; y < shown.height(); ++y) {
                for (int x = 0; x < shown.width(); ++x) {
                    ASSERT_TRUE(isPixel(x, y, kSlack, kSlack) || isPixel(x, y, -kSlack, kSlack) ||
                                isPixel(x, y, kSlack, -kSlack) || isPixel(x, y, -kSlack, -kSlack))
                        << "ratio " << ratio << " zoom " << zoom << " at " << x << ", " << y;
                }
            }
        }
    }
}

TEST(StretchBltToPainter, LeavesWhatTheSourceDoesNotReach)
{
    const QImage source = numbered(10, 10);
    const QImage shown = painted(deviceOf(12, 12, 1), {0, 0, 12, 12}, source, {6, 7, 6, 6});
    expectPixels(shown, imageOf(12, 12, [&](int x, int y) {
                     return x < 8 && y < 6 ? source.pixel(6 + x / 2, 7 + y / 2) : kBlank;
                 }));
}

TEST(StretchBltToPainter, AveragesAtDevicePixels)
{
    const QImage board = imageOf(40, 40, [](int x, int y) {
        return (x / 2 + y / 2) % 2 ? qRgb(255, 255, 255) : qRgb(0, 0, 0);
    });
    const QImage plain = painted(deviceOf(10, 10, 1), {0, 0, 10, 10}, board, {0, 0, 40, 40});
    expectPixels(plain, filled(10, 10, qRgb(128, 128, 128)));
    const QImage fine = painted(deviceOf(10, 10, 2), {0, 0, 10, 10}, board, {0, 0, 40, 40});
    expectPixels(fine, imageOf(20, 20, [](int x, int y) {
                     return (x + y) % 2 ? qRgb(255, 255, 255) : qRgb(0, 0, 0);
                 }));
}

TEST(StretchBltToPainter, MatchesTheSurfaceTransferWhenShrinkingAPart)
{
    const QImage source = numbered(120, 90);
    QImage expected = filled(50, 40, kBlank);
    ASSERT_TRUE(StretchBlt(expected, {-7, 5, 70, 30}, source, {3, 2, 110, 80}));
    expectPixels(painted(deviceOf(50, 40, 1), {-7, 5, 70, 30}, source, {3, 2, 110, 80}), expected);
}

TEST(StretchBltToPainter, MirrorsExactly)
{
    const QImage source = numbered(20, 10);
    expectPixels(painted(deviceOf(20, 10, 1), {0, 0, 20, 10}, source, {19, 9, -20, -10}),
                 source.mirrored(true, true));
    expectPixels(painted(deviceOf(20, 10, 2), {19, 0, -20, 10}, source, {0, 0, 20, 10}),
                 imageOf(40, 20, [&](int x, int y) { return source.pixel(19 - x / 2, y / 2); }));
}

TEST(StretchBltToPainter, HonoursTheClipAndTheTranslation)
{
    const QImage source = numbered(20, 20);
    QImage device = filled(30, 30, kBlank);
    QPainter painter(&device);
    painter.translate(5, 4);
    painter.setClipRect(0, 0, 10, 12);
    EXPECT_TRUE(StretchBlt(painter, {0, 0, 20, 20}, source, {0, 0, 20, 20}));
    painter.end();
    expectPixels(device, imageOf(30, 30, [&](int x, int y) {
                     const bool inside = x >= 5 && x < 15 && y >= 4 && y < 16;
                     return inside ? source.pixel(x - 5, y - 4) : kBlank;
                 }));
}

TEST(StretchBltToPainter, KeepsThePaintersHints)
{
    const QImage source = numbered(4, 4);
    QImage device = filled(8, 8, kBlank);
    QPainter painter(&device);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    EXPECT_TRUE(StretchBlt(painter, {0, 0, 8, 8}, source, {0, 0, 4, 4}));
    EXPECT_TRUE(painter.testRenderHint(QPainter::SmoothPixmapTransform));
    painter.end();
    expectPixels(device, imageOf(8, 8, [&](int x, int y) { return source.pixel(x / 2, y / 2); }));
}

TEST(StretchBltToPainter, RefusesEmptyAreasAndIdlePainters)
{
    const QImage source = numbered(4, 4);
    QPainter idle;
    EXPECT_FALSE(StretchBlt(idle, {0, 0, 4, 4}, source, {0, 0, 4, 4}));
    QImage device = filled(8, 8, kBlank);
    QPainter painter(&device);
    EXPECT_FALSE(StretchBlt(painter, {0, 0, 0, 4}, source, {0, 0, 4, 4}));
    EXPECT_FALSE(StretchBlt(painter, {0, 0, 4, 4}, source, {0, 0, 4, 0}));
    EXPECT_FALSE(StretchBlt(painter, {0, 0, 4, 4}, QImage(), {0, 0, 4, 4}));
}
