#include "paint.h"

#include <algorithm>
#include <cmath>

namespace tools {

namespace {

// An even spread of the corners of the noise's grid over 0 to 1.
double cornerValue(int x, int y, std::uint32_t seed)
{
    std::uint32_t hash = seed * 0x9E3779B9U;
    hash ^= static_cast<std::uint32_t>(x) * 0x85EBCA6BU;
    hash = (hash ^ (hash >> 13U)) * 0xC2B2AE35U;
    hash ^= static_cast<std::uint32_t>(y) * 0x27D4EB2FU;
    hash = (hash ^ (hash >> 15U)) * 0x2C1B3C6DU;
    hash ^= hash >> 16U;
    return hash / 4294967296.0;
}

double eased(double share)
{
    return share * share * (3 - 2 * share);
}

int channel(double part)
{
    return static_cast<int>(std::lround(std::clamp(part, 0.0, 1.0) * 255));
}

} // namespace

Tint tint(unsigned hex)
{
    return {((hex >> 16U) & 0xFFU) / 255.0, ((hex >> 8U) & 0xFFU) / 255.0, (hex & 0xFFU) / 255.0};
}

Tint mixed(Tint from, Tint to, double share)
{
    return from * (1 - share) + to * share;
}

QRgb pixelOf(Tint colour)
{
    return qRgb(channel(colour.red), channel(colour.green), channel(colour.blue));
}

QColor colourOf(Tint colour, double opacity)
{
    return {channel(colour.red), channel(colour.green), channel(colour.blue), channel(opacity)};
}

Tint ramp(std::span<const Stop> stops, double at)
{
    for (std::size_t i = 1; i < stops.size(); ++i) {
        if (at < stops[i].at) {
            const double share = (at - stops[i - 1].at) / (stops[i].at - stops[i - 1].at);
            return mixed(tint(stops[i - 1].hex), tint(stops[i].hex), std::max(share, 0.0));
        }
    }
    return tint(stops.back().hex);
}

double smooth(double edge, double otherEdge, double value)
{
    return eased(std::clamp((value - edge) / (otherEdge - edge), 0.0, 1.0));
}

double Dice::next()
{
    m_state ^= m_state << 13U;
    m_state ^= m_state >> 17U;
    m_state ^= m_state << 5U;
    return m_state / 4294967296.0;
}

double noise(double x, double y, std::uint32_t seed)
{
    const double left = std::floor(x);
    const double top = std::floor(y);
    const int column = static_cast<int>(left);
    const int row = static_cast<int>(top);
    const double across = eased(x - left);
    const double down = eased(y - top);
    const double upper =
        std::lerp(cornerValue(column, row, seed), cornerValue(column + 1, row, seed), across);
    const double lower = std::lerp(cornerValue(column, row + 1, seed),
                                   cornerValue(column + 1, row + 1, seed), across);
    return std::lerp(upper, lower, down);
}

double cloudiness(double x, double y, int octaves, std::uint32_t seed)
{
    double sum = 0;
    double weight = 0.5;
    double total = 0;
    for (int octave = 0; octave < octaves; ++octave) {
        sum += weight * noise(x, y, seed + static_cast<std::uint32_t>(octave));
        total += weight;
        weight /= 2;
        x = x * 2 + 17.3; // shifted, so that the grids of the octaves don't meet
        y = y * 2 + 9.1;
    }
    return sum / total;
}

Tint tintAt(const QImage& image, int x, int y)
{
    return tint(image.pixel(x, y) & 0xFFFFFFU);
}

void cover(QImage& image, int x, int y, Tint colour, double share)
{
    image.setPixel(x, y, pixelOf(mixed(tintAt(image, x, y), colour, share)));
}

void addGrain(QImage& image, int amount, std::uint32_t seed)
{
    Dice dice(seed);
    for (int y = 0; y < image.height(); ++y) {
        QRgb* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int step = static_cast<int>(std::lround(dice.between(-amount, amount)));
            row[x] = qRgb(std::clamp(qRed(row[x]) + step, 0, 255),
                          std::clamp(qGreen(row[x]) + step, 0, 255),
                          std::clamp(qBlue(row[x]) + step, 0, 255));
        }
    }
}

} // namespace tools
