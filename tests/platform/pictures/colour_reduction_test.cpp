#include "platform/pictures/colour_reduction.h"

#include <cmath>
#include <functional>
#include <random>
#include <set>

#include <gtest/gtest.h>

namespace {

using platform::IndexedPicture;
using platform::reduceColours;

QImage painted(int width, int height, const std::function<QRgb(int, int)>& colour)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            image.setPixel(x, y, colour(x, y));
        }
    }
    return image;
}

std::size_t numberAt(const IndexedPicture& picture, int x, int y)
{
    const auto row = static_cast<std::size_t>(picture.height - 1 - y);
    return std::to_integer<std::size_t>(
        picture.bits[row * picture.stride + static_cast<std::size_t>(x)]);
}

QRgb colourAt(const IndexedPicture& picture, int x, int y)
{
    return picture.table[numberAt(picture, x, y)];
}

double meanError(const QImage& image, const IndexedPicture& picture)
{
    double sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb before = image.pixel(x, y);
            const QRgb after = colourAt(picture, x, y);
            sum += std::pow(qRed(before) - qRed(after), 2) +
                   std::pow(qGreen(before) - qGreen(after), 2) +
                   std::pow(qBlue(before) - qBlue(after), 2);
        }
    }
    return sum / 3 / image.width() / image.height();
}

void expectSame(const QImage& image, const IndexedPicture& picture)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            ASSERT_EQ(colourAt(picture, x, y), image.pixel(x, y)) << x << "," << y;
        }
    }
}

} // namespace

TEST(ColourReduction, KeepsUpTo256ColoursExactly)
{
    std::mt19937 random(1);
    std::set<QRgb> colours;
    while (colours.size() < 256) {
        colours.insert(random() | 0xFF000000U);
    }
    const std::vector<QRgb> list(colours.begin(), colours.end());
    for (const std::size_t used : {std::size_t{1}, std::size_t{2}, std::size_t{255}, list.size()}) {
        const QImage image = painted(61, 40, [&](int x, int y) {
            return list[static_cast<std::size_t>(y * 61 + x) % used];
        });
        const auto picture = reduceColours(image);
        ASSERT_TRUE(picture);
        expectSame(image, *picture);
    }
}

TEST(ColourReduction, NumbersColoursAsTheyAppearAndFillsUpWithBlack)
{
    const QImage image = painted(3, 2, [](int x, int y) { return qRgb(10 * x, 20 * y, 30); });
    const auto picture = reduceColours(image);
    ASSERT_TRUE(picture);
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(numberAt(*picture, i % 3, i / 3), static_cast<std::size_t>(i));
    }
    EXPECT_EQ(picture->table[0], qRgb(0, 0, 30));
    EXPECT_EQ(picture->table[5], qRgb(20, 20, 30));
    EXPECT_EQ(picture->table[6], qRgb(0, 0, 0));
    EXPECT_EQ(picture->table[255], qRgb(0, 0, 0));
}

TEST(ColourReduction, StoresRowsFromTheBottomPaddedToFourBytes)
{
    const QImage image =
        painted(5, 2, [](int, int y) { return y == 0 ? qRgb(1, 2, 3) : qRgb(4, 5, 6); });
    const auto picture = reduceColours(image);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width, 5);
    EXPECT_EQ(picture->height, 2);
    EXPECT_EQ(picture->stride, 8U);
    std::vector<std::byte> bits(16, std::byte{0});
    std::fill_n(bits.begin(), 5, std::byte{1});
    EXPECT_EQ(picture->bits, bits);
}

TEST(ColourReduction, SpreadsTheTableOverAPictureOfManyColours)
{
    // Every colour of a coarse cube, 4096 of them: evenly spread entries stand 40 apart, so that a
    // channel is off by about twelve in the mean square of 150.
    const QImage image = painted(64, 64, [](int x, int y) {
        const int i = y * 64 + x;
        return qRgb(17 * (i & 15), 17 * (i >> 4 & 15), 17 * (i >> 8));
    });
    const auto picture = reduceColours(image);
    ASSERT_TRUE(picture);
    EXPECT_LT(meanError(image, *picture), 180);
    EXPECT_EQ(std::set<QRgb>(picture->table.begin(), picture->table.end()).size(), 256U);
}

TEST(ColourReduction, GivesEveryPixelItsNearestEntry)
{
    std::mt19937 random(2);
    const QImage image = painted(100, 80, [&](int, int) { return random() | 0xFF000000U; });
    const auto picture = reduceColours(image);
    ASSERT_TRUE(picture);
    const auto distance = [](QRgb left, QRgb right) {
        return std::pow(qRed(left) - qRed(right), 2) + std::pow(qGreen(left) - qGreen(right), 2) +
               std::pow(qBlue(left) - qBlue(right), 2);
    };
    for (int y = 0; y < 80; ++y) {
        for (int x = 0; x < 100; ++x) {
            double best = 1e9;
            for (const QRgb entry : picture->table) {
                best = std::min(best, distance(entry, image.pixel(x, y)));
            }
            // Colours that differ in the last two bits of a channel share an entry.
            EXPECT_LE(std::sqrt(distance(colourAt(*picture, x, y), image.pixel(x, y))),
                      std::sqrt(best) + 2 * std::sqrt(3 * 9.0));
        }
    }
}

TEST(ColourReduction, TellsFineShadesApart)
{
    // 341 shades of three neighbouring greys: fewer coarse steps than entries.
    const QImage image = painted(1024, 4, [](int x, int) {
        const int shade = x / 4;
        return qRgb(shade, shade + (x % 4 == 1 && shade < 255 ? 1 : 0), shade);
    });
    const auto picture = reduceColours(image);
    ASSERT_TRUE(picture);
    EXPECT_LT(meanError(image, *picture), 0.2);
}

TEST(ColourReduction, FavoursTheColoursOfManyPixels)
{
    // A photo-like slope in nine tenths of the picture and specks of every colour in the rest.
    std::mt19937 random(3);
    const QImage image = painted(256, 256, [&](int x, int y) {
        return y < 230 ? qRgb(x / 2, x / 3 + y / 8, 40) : random() | 0xFF000000U;
    });
    const auto picture = reduceColours(image);
    ASSERT_TRUE(picture);
    EXPECT_LT(meanError(image.copy(0, 0, 256, 230),
                        IndexedPicture{256, 230, 256,
                                       std::vector<std::byte>(picture->bits.begin() + 26 * 256,
                                                              picture->bits.end()),
                                       picture->table}),
              25);
}

TEST(ColourReduction, IgnoresTransparency)
{
    QImage image(2, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, qRgba(10, 20, 30, 0));
    image.setPixel(1, 0, qRgba(10, 20, 30, 255));
    const auto picture = reduceColours(image);
    ASSERT_TRUE(picture);
    EXPECT_EQ(colourAt(*picture, 0, 0), qRgb(10, 20, 30));
    EXPECT_EQ(numberAt(*picture, 1, 0), 0U);
}

TEST(ColourReduction, TakesPicturesOfOtherFormats)
{
    QImage image(2, 1, QImage::Format_RGB888);
    image.setPixel(0, 0, qRgb(200, 100, 50));
    image.setPixel(1, 0, qRgb(1, 2, 3));
    const auto picture = reduceColours(image);
    ASSERT_TRUE(picture);
    expectSame(image, *picture);
}

TEST(ColourReduction, HasNothingForANullImage)
{
    EXPECT_FALSE(reduceColours(QImage()));
}

TEST(NearestColour, FindsWhatAFullSearchFinds)
{
    std::mt19937 random(4);
    const auto channel = [&] { return static_cast<float>(random() % 2551) / 10.F; };
    for (const std::size_t count : {1U, 2U, 17U, 256U}) {
        std::vector<platform::WeightedColour> entries(count);
        for (auto& entry : entries) {
            entry = {channel(), channel(), channel(), 1};
        }
        const platform::NearestColour nearest(entries);
        const auto distance = [](const auto& left, const auto& right) {
            return std::pow(left.red - right.red, 2) + std::pow(left.green - right.green, 2) +
                   std::pow(left.blue - right.blue, 2);
        };
        for (int i = 0; i < 500; ++i) {
            const platform::WeightedColour colour{channel(), channel(), channel(), 1};
            double best = 1e9;
            for (const auto& entry : entries) {
                best = std::min<double>(best, distance(entry, colour));
            }
            EXPECT_NEAR(distance(entries[nearest.find(colour)], colour), best, 1e-2);
        }
    }
}
