#include "platform/pictures/transforms.h"

#include "platform/pictures/test_images.h"

#include <gtest/gtest.h>

using platform::Half;
using test::expectPixels;
using test::imageOf;
using test::numbered;

namespace {

const std::vector<QSize> kSizes{{1, 1}, {1, 9}, {9, 1}, {2, 2}, {7, 4}, {8, 5}, {253, 64}};

// Large enough for its pixels to lie in large pages.
QImage large()
{
    return imageOf(1501, 1000, [](int x, int y) { return qRgb(x & 255, y & 255, (x ^ y) & 255); });
}

} // namespace

TEST(Transforms, FlipTopToBottomExactly)
{
    for (const QSize size : kSizes) {
        const QImage image = numbered(size.width(), size.height());
        expectPixels(platform::flippedTopToBottom(image),
                     imageOf(size.width(), size.height(),
                             [&](int x, int y) { return image.pixel(x, size.height() - 1 - y); }));
    }
}

TEST(Transforms, FlipLeftToRightExactly)
{
    for (const QSize size : kSizes) {
        const QImage image = numbered(size.width(), size.height());
        expectPixels(platform::flippedLeftToRight(image),
                     imageOf(size.width(), size.height(),
                             [&](int x, int y) { return image.pixel(size.width() - 1 - x, y); }));
    }
}

TEST(Transforms, GiveThePictureBackWhenFlippedTwice)
{
    for (const QImage& image : {numbered(31, 17), large()}) {
        EXPECT_EQ(platform::flippedTopToBottom(platform::flippedTopToBottom(image)), image);
        EXPECT_EQ(platform::flippedLeftToRight(platform::flippedLeftToRight(image)), image);
        EXPECT_NE(platform::flippedTopToBottom(image), image);
        EXPECT_NE(platform::flippedLeftToRight(image), image);
    }
}

TEST(Transforms, MirrorTheHalfThatStays)
{
    for (const QSize size : kSizes) {
        const int width = size.width();
        const QImage image = numbered(width, size.height());
        expectPixels(platform::mirrored(image, Half::Left),
                     imageOf(width, size.height(), [&](int x, int y) {
                         return image.pixel(std::min(x, width - 1 - x), y);
                     }));
        expectPixels(platform::mirrored(image, Half::Right),
                     imageOf(width, size.height(), [&](int x, int y) {
                         return image.pixel(std::max(x, width - 1 - x), y);
                     }));
    }
}

TEST(Transforms, LeaveTheMiddleColumnOfAnOddWidth)
{
    const QImage image = test::greys({10, 20, 30, 40, 50});
    expectPixels(platform::mirrored(image, Half::Left), test::greys({10, 20, 30, 20, 10}));
    expectPixels(platform::mirrored(image, Half::Right), test::greys({50, 40, 30, 40, 50}));
}

TEST(Transforms, ScaleToTheExactSize)
{
    for (const QSize size : {QSize(1, 1), QSize(50, 25), QSize(99, 201), QSize(300, 7)}) {
        EXPECT_EQ(platform::scaledTo(numbered(100, 80), size).size(), size);
    }
    EXPECT_EQ(platform::scaledTo(large(), QSize(1501, 1000)), large());
}

TEST(Transforms, AverageWhereThePictureShrinks)
{
    const QImage board = imageOf(64, 64, [](int x, int y) {
        return (x + y) % 2 == 0 ? qRgb(255, 255, 255) : qRgb(0, 0, 0);
    });
    const QImage small = platform::scaledTo(board, QSize(32, 16));
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 32; ++x) {
            EXPECT_NEAR(qRed(small.pixel(x, y)), 128, 1);
            EXPECT_NEAR(qBlue(small.pixel(x, y)), 128, 1);
        }
    }
}

TEST(Transforms, AverageFractionsOfRowsAndColumns)
{
    // Rows 0..6 of 7 over two rows: each takes three and a half.
    const QImage rows = imageOf(2, 7, [](int, int y) { return qRgb(30 * y, 30 * y, 30 * y); });
    const QImage two = platform::scaledTo(rows, QSize(2, 2));
    EXPECT_NEAR(qRed(two.pixel(0, 0)), (0 + 30 + 60 + 45) / 3.5, 1);
    EXPECT_NEAR(qRed(two.pixel(1, 1)), (45 + 120 + 150 + 180) / 3.5, 1);
}

TEST(Transforms, AverageManyRowsAtOnce)
{
    for (const int height : {2, 3, 8, 9, 10, 11, 17, 18, 19, 26, 27, 100, 1000}) {
        const QImage rows = imageOf(3, height, [height](int, int y) {
            const int level = y * 255 / (height - 1);
            return qRgb(level, 255 - level, 77);
        });
        const QRgb mean = platform::scaledTo(rows, QSize(3, 1)).pixel(1, 0);
        EXPECT_NEAR(qRed(mean), 127.5, 1.5) << height;
        EXPECT_NEAR(qGreen(mean), 127.5, 1.5) << height;
        EXPECT_EQ(qBlue(mean), 77) << height;
    }
}

TEST(Transforms, AverageManyRowsOfWhichOneIsShared)
{
    for (const int height : {3, 5, 15, 17, 19, 21, 33, 35, 37, 101, 999}) {
        const auto level = [height](int y) { return y * 255 / (height - 1); };
        const QImage rows =
            imageOf(3, height, [&](int, int y) { return qRgb(level(y), 255 - level(y), 77); });
        const int middle = height / 2;
        double sum = level(middle) / 2.0;
        for (int y = 0; y < middle; ++y) {
            sum += level(y);
        }
        const double mean = sum / (middle + 0.5);
        const QImage two = platform::scaledTo(rows, QSize(3, 2));
        EXPECT_NEAR(qRed(two.pixel(1, 0)), mean, 1) << height;
        EXPECT_NEAR(qGreen(two.pixel(1, 0)), 255 - mean, 1) << height;
        EXPECT_NEAR(qGreen(two.pixel(1, 1)), mean, 1.5) << height;
        EXPECT_EQ(qBlue(two.pixel(2, 1)), 77) << height;
    }
}

TEST(Transforms, KeepTheBrightestRowsWhenTheyAverage)
{
    for (const int height : {2, 8, 9, 10, 16, 18, 300}) {
        const QImage white = test::filled(5, height, qRgb(255, 255, 255));
        expectPixels(platform::scaledTo(white, QSize(5, 1)),
                     test::filled(5, 1, qRgb(255, 255, 255)));
    }
}

TEST(Transforms, RefuseSizesThatNoPictureHas)
{
    const QImage image = numbered(10, 10);
    for (const QSize size :
         {QSize(0, 5), QSize(5, 0), QSize(-5, 5), QSize(100000, 100000), QSize(67000000, 1),
          QSize(1, 67000000), QSize(32768, 1), QSize(1, 32768)}) {
        EXPECT_TRUE(platform::scaledTo(image, size).isNull());
    }
    EXPECT_EQ(platform::scaledTo(image, QSize(32767, 1)).size(), QSize(32767, 1));
}

TEST(Transforms, GiveANullImageForANullOne)
{
    EXPECT_TRUE(platform::flippedTopToBottom(QImage()).isNull());
    EXPECT_TRUE(platform::flippedLeftToRight(QImage()).isNull());
    EXPECT_TRUE(platform::mirrored(QImage(), Half::Left).isNull());
    EXPECT_TRUE(platform::scaledTo(QImage(), QSize(3, 3)).isNull());
}
