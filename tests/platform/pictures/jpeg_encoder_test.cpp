#include "platform/pictures/jpeg_encoder.h"

#include <QBuffer>
#include <QImageReader>
#include <cmath>
#include <random>

#include <gtest/gtest.h>

namespace {

using platform::JpegEncoder;
using Progress = platform::JpegEncoder::Progress;

QByteArray copyOf(const JpegEncoder& encoder)
{
    const auto bytes = encoder.bytes();
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

QByteArray encoded(const QImage& image, int quality)
{
    JpegEncoder encoder(image, quality);
    EXPECT_TRUE(encoder.encodeAll());
    return copyOf(encoder);
}

QImage slope(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            image.setPixel(x, y, qRgb(255 * x / width, 255 * y / height, 128));
        }
    }
    return image;
}

QImage noise(int width, int height)
{
    std::mt19937 random(1);
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            image.setPixel(x, y, random() | 0xFF000000U);
        }
    }
    return image;
}

} // namespace

TEST(JpegEncoder, GivesTheColoursBack)
{
    const QImage image = slope(200, 150);
    const QImage decoded = QImage::fromData(encoded(image, 95), "JPEG");
    ASSERT_EQ(decoded.size(), image.size());
    for (int y = 0; y < 150; y += 7) {
        for (int x = 0; x < 200; x += 7) {
            EXPECT_NEAR(qRed(decoded.pixel(x, y)), qRed(image.pixel(x, y)), 6);
            EXPECT_NEAR(qGreen(decoded.pixel(x, y)), qGreen(image.pixel(x, y)), 6);
            EXPECT_NEAR(qBlue(decoded.pixel(x, y)), 128, 6);
        }
    }
}

TEST(JpegEncoder, GrowsWithTheQuality)
{
    const QImage image = noise(120, 120);
    const auto sizeAt = [&](int quality) { return encoded(image, quality).size(); };
    EXPECT_LT(sizeAt(1), sizeAt(50));
    EXPECT_LT(sizeAt(50), sizeAt(89));
    EXPECT_LT(sizeAt(89), sizeAt(90));
    EXPECT_LT(sizeAt(90), sizeAt(100));
}

TEST(JpegEncoder, ForcesTheQualityIntoItsRange)
{
    const QImage image = slope(64, 64);
    EXPECT_EQ(encoded(image, 0), encoded(image, 1));
    EXPECT_EQ(encoded(image, 150), encoded(image, 100));
}

TEST(JpegEncoder, KeepsSharpColourEdgesAtHighQuality)
{
    QImage image(64, 64, QImage::Format_RGB32);
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x) {
            image.setPixel(x, y, x % 2 == 0 ? qRgb(255, 0, 0) : qRgb(0, 0, 255));
        }
    }
    const QImage decoded = QImage::fromData(encoded(image, 100), "JPEG");
    EXPECT_GT(qRed(decoded.pixel(20, 20)), 240);
    EXPECT_GT(qBlue(decoded.pixel(21, 20)), 240);
}

TEST(JpegEncoder, GivesTheSameBytesInSlices)
{
    const QImage image = noise(100, 70);
    JpegEncoder encoder(image, 80);
    for (int rows = 0; rows < 60; rows += 10) {
        EXPECT_EQ(encoder.encodeRows(10), Progress::MoreRows);
        EXPECT_TRUE(encoder.bytes().empty());
    }
    EXPECT_EQ(encoder.encodeRows(10), Progress::Done);
    EXPECT_EQ(encoder.encodeRows(10), Progress::Done);
    EXPECT_EQ(copyOf(encoder), encoded(image, 80));
}

TEST(JpegEncoder, CanBeGivenUpHalfWay)
{
    // Many bytes, so that their memory has grown before.
    JpegEncoder encoder(noise(1000, 700), 100);
    EXPECT_EQ(encoder.encodeRows(600), Progress::MoreRows);
    EXPECT_TRUE(encoder.bytes().empty());
}

TEST(JpegEncoder, TakesTheSmallestAndTheLongestPictures)
{
    for (const QSize size : {QSize(1, 1), QSize(1, 77), QSize(65500, 1), QSize(1, 65500)}) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(qRgb(90, 90, 90));
        const QImage decoded = QImage::fromData(encoded(image, 80), "JPEG");
        ASSERT_EQ(decoded.size(), size);
        EXPECT_NEAR(qRed(decoded.pixel(0, 0)), 90, 2);
    }
}

TEST(JpegEncoder, RefusesWhatAJpegCantTell)
{
    for (const QSize size : {QSize(65501, 1), QSize(1, 65501), QSize(0, 0)}) {
        JpegEncoder encoder(QImage(size, QImage::Format_RGB32), 80);
        EXPECT_EQ(encoder.encodeRows(1), Progress::Failed);
        EXPECT_FALSE(encoder.encodeAll());
        EXPECT_TRUE(encoder.bytes().empty());
    }
}
