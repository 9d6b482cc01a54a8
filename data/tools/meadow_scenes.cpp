#include "scenes.h"

#include "paint.h"

#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <array>
#include <cmath>

namespace tools {

namespace {

void drawLavenderBushes(QPainter& painter, double horizon, double height)
{
    Dice dice(77);
    constexpr int kRows = 260;
    for (int line = 0; line < kRows; ++line) {
        const double depth = std::pow(line / double(kRows), 2.1);
        const double y = horizon + 4 + depth * (height - horizon + 60);
        const double scale = 0.03 + depth;
        for (int row = -60; row <= 60; ++row) {
            const double centre = 660 + (row * 205 + 60) * scale;
            if (centre < -160 || centre > 1440) {
                continue;
            }
            const int strokes = 3 + static_cast<int>(26 * scale);
            for (int stroke = 0; stroke < strokes; ++stroke) {
                const double across = dice.between(-1, 1);
                const double foot = centre + across * 62 * scale;
                const double tall = (1.15 - across * across) * 66 * scale * dice.between(0.6, 1.1);
                const double light = 0.5 - across * 0.38 + dice.between(-0.2, 0.2);
                Tint flower = mixed(tint(0x43307E), tint(0xB58BE6), light);
                flower = mixed(flower, tint(0xF2A9A0), smooth(0.35, 0, depth) * 0.5);
                painter.setPen(QPen(colourOf(flower), std::max(0.7, 4.2 * scale), Qt::SolidLine,
                                    Qt::RoundCap));
                painter.drawLine(QPointF(foot, y), QPointF(foot + across * 9 * scale, y - tall));
            }
        }
    }
}

void drawPoppy(QPainter& painter, QPointF centre, double size, Dice& dice)
{
    const Tint red = mixed(tint(0xD6281E), tint(0xF4573A), dice.next());
    painter.setPen(Qt::NoPen);
    const double tilt = dice.between(-0.25, 0.25);
    for (int petal = 0; petal < 5; ++petal) {
        const double angle = petal * 1.2566 + tilt * 4;
        const QPointF middle(centre.x() + std::cos(angle) * size * 0.42,
                             centre.y() + std::sin(angle) * size * 0.26);
        QRadialGradient shade(centre, size * 1.05);
        shade.setColorAt(0, colourOf(red * 0.55));
        shade.setColorAt(0.35, colourOf(red * 0.9));
        shade.setColorAt(1, colourOf(mixed(red, tint(0xFF9A6B), 0.45)));
        painter.setBrush(shade);
        painter.drawEllipse(middle, size * 0.5, size * 0.36);
    }
    painter.setBrush(QColor(0x2A, 0x1B, 0x22));
    painter.drawEllipse(centre, size * 0.16, size * 0.11);
}

void drawMeadow(QPainter& painter, double horizon, QSize size)
{
    Dice dice(5);
    constexpr int kLines = 150;
    for (int line = 0; line < kLines; ++line) {
        const double depth = std::pow(line / double(kLines), 1.7);
        const double y = horizon + depth * (size.height() - horizon + 40);
        const double scale = 0.06 + depth;
        const int blades = static_cast<int>(150 - 60 * depth);
        for (int blade = 0; blade < blades; ++blade) {
            const double x = dice.between(-10, size.width() + 10);
            const double patch = cloudiness(x / 220, y / 60, 3, 9);
            const Tint green = mixed(mixed(tint(0x2E5B2B), tint(0xA9C45C), dice.next()),
                                     tint(0xD9D58A), smooth(0.3, 0, depth) * 0.7);
            painter.setPen(QPen(colourOf(green * (0.7 + 0.6 * patch)), 0.8 + 1.8 * scale));
            painter.drawLine(QPointF(x, y), QPointF(x + dice.between(-9, 9) * scale,
                                                    y - dice.between(14, 46) * scale));
        }
        const int poppies = static_cast<int>(17 - 13 * depth);
        for (int poppy = 0; poppy < poppies; ++poppy) {
            const QPointF centre(dice.between(-20, size.width() + 20),
                                 y - dice.between(14, 44) * scale);
            if (cloudiness(centre.x() / 170, y / 50, 2, 33) > 0.42) {
                drawPoppy(painter, centre, 3 + 27 * scale, dice);
            }
        }
    }
}

void drawBirch(QPainter& painter, double x, double width, double height, double haze, Dice& dice)
{
    const double lean = dice.between(-0.03, 0.03) * height;
    QPainterPath trunk;
    trunk.moveTo(x - width * 0.62, height);
    trunk.lineTo(x + lean - width * 0.40, -10);
    trunk.lineTo(x + lean + width * 0.40, -10);
    trunk.lineTo(x + width * 0.62, height);
    trunk.closeSubpath();
    QLinearGradient round(x - width * 0.6, 0, x + width * 0.6, 0);
    const Tint air = tint(0xF3CF86);
    round.setColorAt(0, colourOf(mixed(tint(0xFFF8EA), air, haze)));
    round.setColorAt(0.55, colourOf(mixed(tint(0xDDD3C6), air, haze)));
    round.setColorAt(1, colourOf(mixed(tint(0x8C8079), air, haze)));
    painter.setPen(Qt::NoPen);
    painter.setBrush(round);
    painter.drawPath(trunk);
    painter.setClipPath(trunk);
    painter.setBrush(colourOf(mixed(tint(0x3A322F), air, haze), 0.85));
    double y = dice.between(0, 30);
    while (y < height) {
        const double middle = x + lean * (1 - y / height) + dice.between(-0.6, 0.6) * width;
        painter.drawEllipse(QPointF(middle, y), width * dice.between(0.08, 0.42),
                            width * dice.between(0.02, 0.07));
        y += dice.between(0.25, 1.3) * width;
    }
    painter.setClipping(false);
}

void drawLeaves(QPainter& painter, QSize size, double haze, int count, double side, Dice& dice)
{
    static constexpr std::array kLeaves{0xF2A71BU, 0xE9792AU, 0xFFD257U, 0xC9541FU, 0xD9B23CU};
    painter.setPen(Qt::NoPen);
    for (int leaf = 0; leaf < count; ++leaf) {
        const double x = dice.between(0, size.width());
        const double y = std::pow(dice.next(), 1.5) * size.height() * 0.72;
        if (cloudiness(x / 240, y / 190, 3, 61) < 0.40 + y / size.height() * 0.28) {
            continue;
        }
        const Tint colour = tint(kLeaves[static_cast<std::size_t>(dice.next() * kLeaves.size())]);
        painter.setBrush(colourOf(mixed(colour, tint(0xFFE3A0), haze), dice.between(0.55, 0.95)));
        painter.save();
        painter.translate(x, y);
        painter.rotate(dice.between(0, 180));
        painter.drawEllipse(QPointF(0, 0), side * dice.between(0.6, 1.2), side * 0.5);
        painter.restore();
    }
}

} // namespace

QImage lavenderRows()
{
    static constexpr std::array kSky{Stop{0, 0x3F62B0}, Stop{0.16, 0x9A8FCB}, Stop{0.28, 0xF4A79B},
                                     Stop{0.37, 0xFFD79C}};
    constexpr double kHorizon = 300;
    QImage image = painted(1280, 800, [](int x, int y) {
        Tint sky = ramp(kSky, y / 800.0);
        const double glow = std::hypot(x - 940.0, (y - 285.0) * 1.4);
        sky = mixed(sky, tint(0xFFF3CE), std::exp(-glow / 110));
        const double cloud = smooth(0.5, 0.78, cloudiness(x / 330.0, y / 58.0, 5, 12));
        sky = mixed(sky, tint(0xFFC7B0), cloud * 0.7 * smooth(300, 220, y));
        const double hill = 286 - 34 * cloudiness(x / 240.0, 0.5, 4, 90);
        sky = mixed(sky, tint(0x8D7FB4), smooth(hill, hill + 1.5, y));
        const double nearer = 306 - 26 * cloudiness(x / 170.0, 3.5, 4, 91);
        sky = mixed(sky, tint(0x5F6B96), smooth(nearer, nearer + 1.5, y));
        const Tint earth = mixed(tint(0xC79E84), tint(0x4E5A34), smooth(kHorizon, 700, y));
        return mixed(sky, earth * (0.9 + 0.2 * noise(x / 5.0, y / 2.5, 6) * smooth(320, 420, y)),
                     smooth(kHorizon, kHorizon + 2, y));
    });
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawLavenderBushes(painter, kHorizon, image.height());
    painter.end();
    addGrain(image, 2, 7);
    return image;
}

QImage poppyField()
{
    static constexpr std::array kSky{Stop{0, 0x3E86D8}, Stop{0.3, 0x8FC1EE}, Stop{0.45, 0xE6F1F6}};
    constexpr double kHorizon = 236;
    QImage image = painted(800, 600, [](int x, int y) {
        Tint sky = ramp(kSky, y / 600.0);
        const double cloud = cloudiness(x / 210.0, y / (40.0 + y / 4.0), 5, 21);
        sky = mixed(sky, tint(0xFFFFFF), smooth(0.48, 0.72, cloud) * 0.9);
        const double hill = 232 - 46 * cloudiness(x / 260.0, 0.5, 3, 17);
        sky = mixed(sky, tint(0x86A8B4), smooth(hill, hill + 1.5, y));
        const double wood = 240 - 30 * cloudiness(x / 120.0, 2.5, 5, 18);
        sky = mixed(sky, tint(0x55803F) * (0.8 + 0.4 * noise(x / 7.0, y / 5.0, 3)),
                    smooth(wood, wood + 1.5, y));
        const Tint grass = mixed(tint(0xB9C56B), tint(0x3E6A2B), smooth(kHorizon, 560, y));
        return mixed(sky, grass, smooth(kHorizon, kHorizon + 3, y));
    });
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawMeadow(painter, kHorizon, image.size());
    painter.end();
    return image;
}

QImage birchWood()
{
    static constexpr std::array kAir{Stop{0, 0xFFE9AE}, Stop{0.45, 0xF6C56A}, Stop{0.68, 0xC98A3F},
                                     Stop{1, 0x5B3A22}};
    QImage image = painted(1200, 800, [](int x, int y) {
        const double light = std::exp(-std::hypot((x - 690) / 1.2, y - 260.0) / 260);
        const Tint air =
            ramp(kAir, y / 800.0 + 0.16 * cloudiness(x / 130.0, y / 90.0, 4, 71) - 0.08);
        return mixed(air, tint(0xFFFBE6), light * 0.85);
    });
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    Dice dice(19);
    struct Rank {
        double haze;
        double width;
        double foot;
        int trunks;
        int leaves;
    };
    static constexpr std::array kRanks{Rank{0.78, 9, 560, 34, 2600}, Rank{0.55, 16, 610, 20, 2200},
                                       Rank{0.28, 28, 680, 11, 1600}, Rank{0, 52, 830, 5, 900}};
    for (const Rank& rank : kRanks) {
        for (int trunk = 0; trunk < rank.trunks; ++trunk) {
            const double step = 1200.0 / rank.trunks;
            drawBirch(painter, (trunk + dice.between(0.15, 0.85)) * step,
                      rank.width * dice.between(0.75, 1.2), rank.foot, rank.haze, dice);
        }
        drawLeaves(painter, image.size(), rank.haze * 0.7, rank.leaves, 3 + rank.width / 6, dice);
        painter.setPen(Qt::NoPen);
        for (int litter = 0; litter < 4600; ++litter) {
            const double y = rank.foot - 14 + std::pow(dice.next(), 1.7) * 150;
            const Tint leaf = mixed(tint(0x7A4A22), tint(0xE8973A), dice.next());
            painter.setBrush(colourOf(mixed(leaf, tint(0xF3CF86), rank.haze * 0.8), 0.8));
            painter.drawEllipse(QPointF(dice.between(0, 1200), y), 2 + rank.width / 9,
                                1 + rank.width / 26);
        }
    }
    painter.end();
    addGrain(image, 3, 2);
    return image;
}

} // namespace tools
