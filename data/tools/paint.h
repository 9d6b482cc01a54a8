#pragma once

#include <QColor>
#include <QImage>

#include <cstdint>
#include <span>

namespace tools {

// A colour to calculate with; the parts run from 0 to 1 and may leave that range on the way.
struct Tint {
    double red = 0;
    double green = 0;
    double blue = 0;

    friend Tint operator+(Tint a, Tint b)
    {
        return {a.red + b.red, a.green + b.green, a.blue + b.blue};
    }
    friend Tint operator*(Tint a, double factor)
    {
        return {a.red * factor, a.green * factor, a.blue * factor};
    }
};

// From a number such as 0xF2A52B.
[[nodiscard]] Tint tint(unsigned hex);
[[nodiscard]] Tint mixed(Tint from, Tint to, double share);
[[nodiscard]] QRgb pixelOf(Tint colour);
[[nodiscard]] QColor colourOf(Tint colour, double opacity = 1);

struct Stop {
    double at;
    unsigned hex;
};

// Colour of a gradient; the stops rise, and beyond the ends the end colours go on.
[[nodiscard]] Tint ramp(std::span<const Stop> stops, double at);

// 0 below the edge, 1 above the other, a smooth rise between.
[[nodiscard]] double smooth(double edge, double otherEdge, double value);

// The same numbers for the same seed on every machine, so that every build paints alike.
class Dice {
public:
    explicit Dice(std::uint32_t seed)
        : m_state(seed * 2654435761U + 1U)
    {
    }

    // From 0, without 1.
    double next();
    double between(double low, double high) { return low + (high - low) * next(); }

private:
    std::uint32_t m_state;
};

// Smooth noise from 0 to 1 around 0.5; one hill or dip is about one unit wide.
[[nodiscard]] double noise(double x, double y, std::uint32_t seed);

// Noise with ever finer detail added, again from 0 to 1.
[[nodiscard]] double cloudiness(double x, double y, int octaves, std::uint32_t seed);

// A picture from the colour of each pixel.
template<typename ColourAt> QImage painted(int width, int height, ColourAt colourAt)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        QRgb* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            row[x] = pixelOf(colourAt(x, y));
        }
    }
    return image;
}

[[nodiscard]] Tint tintAt(const QImage& image, int x, int y);

// Lays the colour over a pixel; a share of 1 hides what was there.
void cover(QImage& image, int x, int y, Tint colour, double share);

// Lightens and darkens single pixels by up to the amount (of 255), which hides the steps of
// gradients.
void addGrain(QImage& image, int amount, std::uint32_t seed);

} // namespace tools
