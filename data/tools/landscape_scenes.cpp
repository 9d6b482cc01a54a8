#include "scenes.h"

#include "paint.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>

namespace tools {

namespace {

// Height of a mountain ridge over the column, 0 to 1, with sharp crests.
double ridge(double x, std::uint32_t seed)
{
    double sum = 0;
    double weight = 0.55;
    for (std::uint32_t octave = 0; octave < 6; ++octave) {
        sum += weight * (1 - std::abs(2 * noise(x, 0.5, seed + octave) - 1));
        weight *= 0.46;
        x = x * 2.07 + 5.1;
    }
    return std::min(sum, 1.0);
}

void drawFir(QPainter& painter, QPointF foot, double height, Dice& dice)
{
    QPainterPath fir;
    const double width = height * 0.34;
    fir.moveTo(foot.x(), foot.y() - height);
    for (int tier = 1; tier <= 6; ++tier) {
        const double down = foot.y() - height + height * tier / 6.2;
        const double out = width * tier / 6 * dice.between(0.42, 0.58);
        fir.lineTo(foot.x() + out, down);
        fir.lineTo(foot.x() + out * 0.45, down - height * 0.02);
    }
    for (int tier = 6; tier >= 1; --tier) {
        const double down = foot.y() - height + height * tier / 6.2;
        const double out = width * tier / 6 * dice.between(0.42, 0.58);
        fir.lineTo(foot.x() - out * 0.45, down - height * 0.02);
        fir.lineTo(foot.x() - out, down);
    }
    fir.closeSubpath();
    painter.drawPath(fir);
}

Tint dawnSky(double x, double y)
{
    static constexpr std::array kStops{Stop{0.0, 0x16254F},  Stop{0.2, 0x34498F},
                                       Stop{0.36, 0x8070B2}, Stop{0.47, 0xDC8A93},
                                       Stop{0.56, 0xFBBE84}, Stop{0.66, 0xFFE2AE}};
    Tint sky = ramp(kStops, y / 1000);
    const double distance = std::hypot((x - 1080) * 0.8, y - 545);
    sky = mixed(sky, tint(0xFFE9B6), 0.75 * std::exp(-distance / 170));
    sky = mixed(sky, tint(0xE58A86), 0.3 * std::exp(-distance / 380));
    const double cloud = cloudiness(x / 430, y / 62, 5, 41);
    const double lit = smooth(0.52, 0.8, cloud) * smooth(40, 260, y) * smooth(640, 430, y);
    sky = mixed(sky, mixed(tint(0xE9868B), tint(0xFFD9A0), smooth(500, 60, distance)), lit * 0.75);
    return mixed(tint(0xFFF8DE), sky, smooth(36, 40, std::hypot(x - 1080, y - 545)));
}

// One chain of mountains before the others, its foot in mist.
struct MountainRidge {
    double base; // row from which the peaks rise
    double height;
    double stretch; // columns from peak to peak, roughly
    unsigned crest;
    unsigned foot;
};

void paintRidge(QImage& image, const MountainRidge& mountains, std::uint32_t seed)
{
    for (int x = 0; x < image.width(); ++x) {
        const double top =
            mountains.base - mountains.height * ridge(x / mountains.stretch + seed, seed);
        for (int y = std::max(0, static_cast<int>(top)); y < image.height(); ++y) {
            const double down = (y - top) / (mountains.height * 1.15);
            const double rock = cloudiness(x / 34.0 + y / 70.0, y / 26.0, 4, seed + 50);
            const Tint colour =
                mixed(tint(mountains.crest), tint(mountains.foot), smooth(0.05, 1, down));
            cover(image, x, y, colour * (0.93 + 0.14 * rock), std::clamp(y + 1 - top, 0.0, 1.0));
        }
    }
}

struct Dune {
    double base;
    double swing;
    double length;
    double phase;
    double far; // 0 near, 1 lost in the haze
};

// The slope of the crest line decides how the sand lies to the sun; ripples follow the crest.
void paintDune(QImage& image, const Dune& dune)
{
    for (int x = 0; x < image.width(); ++x) {
        const double turn = x / dune.length * 3.0 + dune.phase;
        const double crest =
            dune.base - dune.swing * (0.75 * std::sin(turn) + 0.25 * std::sin(2.3 * turn));
        const double slope = std::cos(turn) + 0.5 * std::cos(2.3 * turn);
        for (int y = std::max(0, static_cast<int>(crest)); y < image.height(); ++y) {
            const double down = y - crest;
            const double edge = down + 18 * cloudiness(x / 80.0, y / 40.0, 3, 8) - 9;
            const double light = smooth(-0.55, 0.65, slope - edge / (dune.swing * 2.4) + 0.25);
            const double ripple =
                std::sin(down * 0.55 + 9 * noise(x / 46.0, y / 30.0, 4) + x * 0.05);
            const Tint sand = mixed(tint(0x8A3F22), tint(0xFFC06A), light) *
                              (1 + 0.035 * ripple * (1 - dune.far));
            cover(image, x, y, mixed(sand, tint(0xFFDCAA), dune.far * 0.75),
                  std::clamp(y + 1 - crest, 0.0, 1.0));
        }
    }
}

} // namespace

QImage mountainDawn()
{
    static constexpr std::array kRidges{MountainRidge{640, 130, 520, 0xC796AE, 0xF6C9A6},
                                        MountainRidge{705, 215, 470, 0x9D7FB0, 0xEBB6AA},
                                        MountainRidge{765, 215, 400, 0x6E68A8, 0xC79AB0},
                                        MountainRidge{830, 190, 350, 0x485193, 0x8E7FB2},
                                        MountainRidge{905, 170, 300, 0x2F3D78, 0x5A5F9E},
                                        MountainRidge{975, 130, 260, 0x1D2A58, 0x33417C}};
    QImage image = painted(1600, 1000, [](int x, int y) { return dawnSky(x, y); });
    std::uint32_t seed = 23;
    for (const MountainRidge& mountains : kRidges) {
        paintRidge(image, mountains, seed);
        seed += 7;
    }
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x10, 0x18, 0x38));
    Dice dice(3);
    for (int fir = 0; fir < 260; ++fir) {
        const double x = dice.between(-20, 1620);
        const double crowd = std::abs(x - 800) / 800;
        drawFir(painter, {x, 1010 - 30 * crowd}, dice.between(40, 80) + 120 * crowd * dice.next(),
                dice);
    }
    painter.end();
    addGrain(image, 3, 1);
    return image;
}

QImage desertDunes()
{
    static constexpr std::array kSky{Stop{0, 0x2F6FB8}, Stop{0.25, 0x8FBDDC}, Stop{0.46, 0xFFE2B4}};
    static constexpr std::array kDunes{Dune{176, 14, 210, 0.6, 0.85}, Dune{196, 26, 300, 2.2, 0.6},
                                       Dune{226, 40, 360, 4.0, 0.35}, Dune{282, 52, 430, 0.3, 0.12},
                                       Dune{352, 44, 390, 2.9, 0}};
    QImage image = painted(640, 400, [](int, int y) { return ramp(kSky, y / 400.0); });
    for (const Dune& dune : kDunes) {
        paintDune(image, dune);
    }
    return image;
}

} // namespace tools
