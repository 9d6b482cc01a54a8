#include "scenes.h"

#include "paint.h"

#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace tools {

namespace {

void drawStars(QPainter& painter, QSizeF area, int count, std::uint32_t seed)
{
    Dice dice(seed);
    painter.setPen(Qt::NoPen);
    for (int star = 0; star < count; ++star) {
        const QPointF place(dice.between(0, area.width()), dice.between(0, area.height()));
        const double size = 0.4 + 1.1 * std::pow(dice.next(), 6);
        const Tint light = mixed(tint(0xBFD4FF), tint(0xFFEBD0), dice.next());
        painter.setBrush(colourOf(light, dice.between(0.25, 1)));
        painter.drawEllipse(place, size, size);
    }
}

Tint moonlitSky(double x, double y)
{
    static constexpr std::array kStops{Stop{0, 0x071330}, Stop{0.35, 0x14335F},
                                       Stop{0.62, 0x3E6C92}};
    Tint sky = ramp(kStops, y / 1400);
    const double distance = std::hypot(x - 560, y - 400);
    sky = mixed(sky, tint(0xDCEBF5), 0.55 * std::exp(-(distance - 120) / 110));
    const double cloud = smooth(0.5, 0.8, cloudiness(x / 420, y / 90, 5, 14));
    sky = mixed(sky, mixed(tint(0x35507A), tint(0xD6E2EC), std::exp(-distance / 260)),
                cloud * 0.65 * smooth(120, 420, y));
    const double crater = cloudiness(x / 46, y / 46, 4, 3);
    const Tint moon = mixed(tint(0xFFF6DC), tint(0xC9C3B0), smooth(0.45, 0.7, crater) * 0.8);
    const Tint moonInMist = mixed(moon, tint(0xB9C8D4), cloud * 0.35);
    return mixed(moonInMist, sky, smooth(119, 121, distance));
}

// Waves run together towards the horizon; the moon glitters on the crests under it.
Tint moonlitSea(double x, double y, double horizon)
{
    const double near = (y - horizon) / (1400 - horizon);
    const double scale = 4 + 60 * near;
    const double wave = cloudiness((x - 500) / (scale * 3.2), std::sqrt(near) * 70, 4, 30);
    const Tint water = mixed(mixed(tint(0x2F5C80), tint(0x061226), std::sqrt(near)), tint(0x5E8EAE),
                             smooth(0.5, 0.8, wave) * 0.45);
    const double path = std::exp(-std::pow((x - 560) / (70 + 240 * near), 2));
    const double glitter = smooth(0.60 - 0.14 * path, 0.70, wave) * path;
    return mixed(water, tint(0xFFF3D2), glitter);
}

void drawBoat(QPainter& painter, QPointF foot, double size)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x08, 0x10, 0x22));
    QPainterPath hull;
    hull.moveTo(foot.x() - size * 0.55, foot.y() - size * 0.14);
    hull.quadTo(foot.x(), foot.y() + size * 0.16, foot.x() + size * 0.6, foot.y() - size * 0.18);
    hull.closeSubpath();
    painter.drawPath(hull);
    QPainterPath sails;
    sails.moveTo(foot.x() - 2, foot.y() - size * 1.5);
    sails.quadTo(foot.x() - size * 0.1, foot.y() - size * 0.6, foot.x() - size * 0.5,
                 foot.y() - size * 0.24);
    sails.lineTo(foot.x() - 2, foot.y() - size * 0.24);
    sails.closeSubpath();
    sails.moveTo(foot.x() + 3, foot.y() - size * 1.35);
    sails.quadTo(foot.x() + size * 0.42, foot.y() - size * 0.7, foot.x() + size * 0.5,
                 foot.y() - size * 0.26);
    sails.lineTo(foot.x() + 3, foot.y() - size * 0.26);
    sails.closeSubpath();
    painter.drawPath(sails);
}

struct Skyline {
    double base;
    double lowest;
    double highest;
    unsigned wall;
    double lit; // share of the windows that are lit
    std::uint32_t seed;
};

void lightWindows(QPainter& painter, const QRectF& house, double lit, Dice& dice)
{
    static constexpr std::array kLamps{0xFFD98AU, 0xFFC25EU, 0xFFEFC4U, 0x9FD0FFU};
    const int floors = static_cast<int>(std::ceil((house.height() - 15) / 9));
    const int windows = static_cast<int>(std::ceil((house.width() - 11) / 7));
    for (int level = 0; level < floors; ++level) {
        for (int window = 0; window < windows; ++window) {
            if (dice.next() < lit) {
                const auto lamp = static_cast<std::size_t>(dice.next() * kLamps.size());
                const QRectF pane(house.x() + 6 + window * 7, house.y() + 7 + level * 9, 3, 4);
                painter.fillRect(pane, colourOf(tint(kLamps[lamp]), dice.between(0.45, 1)));
            }
        }
    }
}

void drawSkyline(QPainter& painter, const Skyline& skyline, int width)
{
    Dice dice(skyline.seed);
    double x = -10;
    while (x < width) {
        const double broad = std::floor(dice.between(26, 74));
        const double middle = 1 - std::abs(x - width * 0.52) / width;
        const double tall = std::floor(dice.between(skyline.lowest, skyline.highest) *
                                       (0.45 + 0.75 * middle * middle));
        const double top = skyline.base - tall;
        const Tint wall = tint(skyline.wall) * dice.between(0.85, 1.15);
        painter.fillRect(QRectF(x, top, broad, tall), colourOf(wall));
        painter.fillRect(QRectF(x, top, 3, tall), colourOf(wall * 1.5));
        if (dice.next() < 0.3) {
            painter.fillRect(QRectF(x + broad / 2, top - 26, 2, 26), colourOf(wall));
            painter.fillRect(QRectF(x + broad / 2 - 1, top - 28, 4, 4), QColor(0xFF, 0x6B, 0x5E));
        }
        lightWindows(painter, QRectF(x, top, broad, tall), skyline.lit, dice);
        x += broad + std::floor(dice.between(-6, 8));
    }
}

// Everything above the shore again, upside down, darker and broken by ripples.
void reflect(QImage& image, int shore)
{
    for (int y = shore; y < image.height(); ++y) {
        const double near = (y - shore) / double(image.height() - shore);
        for (int x = 0; x < image.width(); ++x) {
            const double ripple = noise(x / (18 + 40 * near), y / (2 + 5 * near), 6) - 0.5;
            const int sourceX =
                std::clamp(static_cast<int>(x + ripple * (6 + 30 * near)), 0, image.width() - 1);
            const int sourceY =
                std::clamp(static_cast<int>(2 * shore - y + ripple * 34 * near), 0, shore - 1);
            const Tint light = tintAt(image, sourceX, sourceY);
            image.setPixel(x, y, pixelOf(mixed(light * 0.72, tint(0x0A1430), 0.25 + 0.35 * near)));
        }
    }
}

struct Ball {
    double x;
    double y;
    double radius;
};

// Brightness of a point of a ball lit from the upper left: 0 in its night, 1 in full light.
double daylight(const Ball& ball, double x, double y)
{
    const double across = (x - ball.x) / ball.radius;
    const double down = (y - ball.y) / ball.radius;
    const double out = std::sqrt(std::max(0.0, 1 - across * across - down * down));
    return std::clamp(-0.62 * across - 0.42 * down + 0.66 * out, 0.0, 1.0);
}

Tint deepSpace(double x, double y)
{
    const double warm = smooth(0.42, 0.85, cloudiness(x / 260 + y / 500, y / 190, 6, 51));
    const double cold = smooth(0.45, 0.9, cloudiness(x / 230, y / 250 - x / 700, 6, 57));
    const Tint space = mixed(tint(0x060814), tint(0x6A2C6E), warm * 0.75);
    return mixed(space, tint(0x1F5D8C), cold * 0.65);
}

Tint bandedPlanet(const Ball& planet, double x, double y)
{
    static constexpr std::array kBands{
        Stop{0, 0xB97A4E},   Stop{0.25, 0xF0CDA0}, Stop{0.42, 0xD3935F}, Stop{0.55, 0xF8E3C0},
        Stop{0.7, 0xC98A63}, Stop{0.85, 0xE9BC8A}, Stop{1, 0x9A6448}};
    const double latitude = ((y - planet.y) - (x - planet.x) * 0.28) / planet.radius / 2 + 0.5;
    const double swirl = 0.06 * (cloudiness(x / 60, y / 16, 4, 15) - 0.5);
    const double light = daylight(planet, x, y);
    return ramp(kBands, latitude + swirl) * (0.04 + 1.05 * std::pow(light, 0.8));
}

// Share of light that the ring's matter gives back at a point, 0 where there is none.
double ringMatter(const Ball& planet, double x, double y, double& side)
{
    const double turn = -0.27;
    const double across = (x - planet.x) * std::cos(turn) - (y - planet.y) * std::sin(turn);
    side = (x - planet.x) * std::sin(turn) + (y - planet.y) * std::cos(turn);
    const double reach = std::hypot(across, side / 0.22) / planet.radius;
    const double grooves = 0.55 + 0.45 * noise(reach * 46, 0.5, 27);
    const double gap = 1 - smooth(0.02, 0.035, 0.05 - std::abs(reach - 1.86));
    return smooth(1.28, 1.34, reach) * smooth(2.2, 2.12, reach) * grooves * gap;
}

// One curtain of light: bright at its lower hem, fading upwards in streaks.
Tint curtain(double x, double y, double base, std::uint32_t seed)
{
    const double hem =
        base + 70 * std::sin(x / 150 + seed) + 90 * (noise(x / 190, 0.5, seed) - 0.5);
    const double up = hem - y;
    const double streak =
        0.35 + 0.65 * noise(x / 7, y / 400, seed + 1) * noise(x / 31, 0.5, seed + 2) * 2;
    const double strength = (0.25 * smooth(-130, 0, up) + 0.75 * smooth(-14, 8, up)) *
                            std::exp(-std::max(up, 0.0) / 95) * streak;
    const Tint colour = mixed(tint(0x53F2A4), tint(0x8A4FD8), smooth(20, 190, up));
    return colour * strength;
}

} // namespace

QImage moonOverTheSea()
{
    constexpr double kHorizon = 860;
    QImage image = painted(1000, 1400, [](int x, int y) {
        return y < kHorizon ? moonlitSky(x, y) : moonlitSea(x, y, kHorizon);
    });
    for (int x = 0; x < image.width(); ++x) {
        const double height =
            150 * smooth(430, 0, x) * (0.55 + 0.6 * cloudiness(x / 70.0, 1.5, 5, 8));
        const double top = kHorizon - height;
        for (int y = std::max(0, static_cast<int>(top)); y < static_cast<int>(kHorizon) + 3; ++y) {
            image.setPixel(x, y, pixelOf(mixed(tint(0x0B1730), tint(0x16294A), (y - top) / 160)));
        }
    }
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRegion(QRegion(0, 0, 1000, 560) - QRegion(430, 270, 260, 260, QRegion::Ellipse));
    drawStars(painter, {1000, 560}, 320, 4);
    painter.setClipping(false);
    drawBoat(painter, {640, 940}, 62);
    painter.end();
    addGrain(image, 3, 5);
    return image;
}

QImage cityAtNight()
{
    static constexpr std::array kSky{Stop{0, 0x0D1538}, Stop{0.35, 0x38307A}, Stop{0.58, 0xA9567F},
                                     Stop{0.7, 0xF79B6D}};
    constexpr int kShore = 430;
    QImage image = painted(960, 600, [](int x, int y) {
        Tint sky = ramp(kSky, y / 600.0);
        const double cloud = smooth(0.5, 0.8, cloudiness(x / 260.0, y / 44.0, 5, 66));
        return mixed(sky, tint(0xE87C7A), cloud * 0.4 * smooth(80, 260, y));
    });
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawStars(painter, {960, 190}, 160, 8);
    drawSkyline(painter, {kShore, 120, 330, 0x5B4A86, 0.22, 12}, 960);
    drawSkyline(painter, {kShore, 80, 260, 0x33336B, 0.36, 29}, 960);
    drawSkyline(painter, {kShore, 40, 150, 0x171C45, 0.5, 35}, 960);
    painter.fillRect(0, kShore - 5, 960, 5, QColor(0x0C, 0x10, 0x2C));
    painter.end();
    reflect(image, kShore);
    return image;
}

QImage ringedPlanet()
{
    constexpr Ball kPlanet{490, 262, 118};
    constexpr Ball kMoon{170, 140, 34};
    QImage image = painted(800, 500, [](int x, int y) { return deepSpace(x, y); });
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        drawStars(painter, {800, 500}, 520, 2);
    }
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            Tint colour = tintAt(image, x, y);
            const double fromMoon = std::hypot(x - kMoon.x, y - kMoon.y);
            const double crater = 0.75 + 0.5 * cloudiness(x / 11.0, y / 11.0, 4, 5);
            const Tint moon = tint(0xB9C3D6) * (0.03 + daylight(kMoon, x, y) * crater);
            colour = mixed(moon, colour, smooth(-0.7, 0.7, fromMoon - kMoon.radius));
            double side = 0;
            const double matter = ringMatter(kPlanet, x, y, side);
            const Tint ring = mixed(tint(0xC9A27C), tint(0xFFEBCB), matter);
            const double fromPlanet = std::hypot(x - kPlanet.x, y - kPlanet.y) - kPlanet.radius;
            const double shadow =
                1 - 0.85 * smooth(56, 14, fromPlanet) * smooth(-20, 60, x - kPlanet.x);
            if (side < 0) {
                colour = mixed(colour, ring * shadow, matter * 0.85);
            }
            colour = mixed(bandedPlanet(kPlanet, x, y), colour, smooth(-0.8, 0.8, fromPlanet));
            if (side >= 0) {
                colour = mixed(colour, ring, matter * 0.85);
            }
            image.setPixel(x, y, pixelOf(colour));
        }
    }
    return image;
}

QImage northernLights()
{
    static constexpr std::array kSky{Stop{0, 0x050A22}, Stop{0.45, 0x0E2A4A}, Stop{0.68, 0x1C4F63}};
    constexpr int kShore = 350;
    QImage image = painted(720, 480, [](int, int y) { return ramp(kSky, y / 480.0); });
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        drawStars(painter, {720, 300}, 330, 6);
    }
    for (int y = 0; y < kShore; ++y) {
        for (int x = 0; x < image.width(); ++x) {
            Tint colour = tintAt(image, x, y);
            colour = colour + curtain(x, y, 190, 1) * 0.95 + curtain(x, y, 250, 6) * 0.8 +
                     curtain(x, y, 130, 11) * 0.5;
            const double far = 300 - 66 * cloudiness(x / 130.0, 0.5, 5, 81);
            const Tint slope = mixed(tint(0x1B4257), tint(0x3F8C8B), smooth(240, 330, y));
            colour = mixed(colour, slope, smooth(far, far + 1.2, y));
            const double wood = 338 - 34 * cloudiness(x / 90.0, 4.5, 3, 85) -
                                16 * std::abs(noise(x / 3.1, 0.5, 87) - 0.3);
            colour = mixed(colour, tint(0x07131F), smooth(wood, wood + 1.2, y));
            image.setPixel(x, y, pixelOf(colour));
        }
    }
    reflect(image, kShore);
    return image;
}

} // namespace tools
