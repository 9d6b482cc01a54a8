#pragma once

#include <QImage>
#include <functional>
#include <gtest/gtest.h>
#include <initializer_list>

// Small pictures for tests, and their comparison.
namespace test {

inline QImage imageOf(int width, int height, const std::function<QRgb(int, int)>& colourAt,
                      QImage::Format format = QImage::Format_RGB32)
{
    QImage image(width, height, format);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            image.setPixel(x, y, colourAt(x, y));
        }
    }
    return image;
}

// Every pixel differs from every other one of pictures up to 256 x 256.
inline QImage numbered(int width, int height)
{
    return imageOf(width, height, [](int x, int y) { return qRgb(x, y, (x * 7 + y * 13) & 255); });
}

inline QImage filled(int width, int height, QRgb colour)
{
    return imageOf(width, height, [colour](int, int) { return colour; });
}

inline void expectPixels(const QImage& image, const QImage& expected)
{
    ASSERT_EQ(image.size(), expected.size());
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            ASSERT_EQ(image.pixel(x, y), expected.pixel(x, y)) << "at " << x << ", " << y;
        }
    }
}

// One row of grey levels.
inline QImage greys(std::initializer_list<int> levels)
{
    QImage image(int(levels.size()), 1, QImage::Format_RGB32);
    int x = 0;
    for (const int level : levels) {
        image.setPixel(x++, 0, qRgb(level, level, level));
    }
    return image;
}

} // namespace test
