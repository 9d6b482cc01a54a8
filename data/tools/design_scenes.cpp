#include "scenes.h"

#include "paint.h"

#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

namespace tools {

namespace {

struct Shard {
    double x;
    double y;
    Tint colour;
};

// Glass is cold far from the sun of the window and warm near it, with a green field below.
std::vector<Shard> shards()
{
    static constexpr std::array kGlass{
        Stop{0, 0xFFF2B8},    Stop{0.12, 0xFFD24A}, Stop{0.24, 0xF58A2B}, Stop{0.38, 0xD63A3F},
        Stop{0.55, 0x8C3FA8}, Stop{0.72, 0x3552C4}, Stop{0.9, 0x1C86C8},  Stop{1.1, 0x1B4F8F}};
    Dice dice(42);
    std::vector<Shard> found;
    for (int ringIndex = 0; ringIndex < 13; ++ringIndex) {
        const int pieces = ringIndex == 0 ? 1 : 8 + ringIndex * 4;
        for (int piece = 0; piece < pieces; ++piece) {
            const double angle = (piece + 0.5 * (ringIndex % 2) + dice.between(-0.12, 0.12)) * 2 *
                                 std::numbers::pi / pieces;
            const double reach = ringIndex * 37 + dice.between(-5, 5);
            const double x = 320 + std::cos(angle) * reach;
            const double y = 170 + std::sin(angle) * reach;
            Tint colour = ramp(kGlass, reach / 400 + dice.between(-0.05, 0.05));
            if (y > 286 + 26 * std::sin(x / 85)) {
                static constexpr std::array kField{0x1F7A4DU, 0x3FA34DU, 0x86B93AU, 0x14614AU};
                colour = tint(kField[static_cast<std::size_t>(dice.next() * kField.size())]);
            }
            found.push_back({x, y, colour * dice.between(0.88, 1.08)});
        }
    }
    return found;
}

Tint glassAt(const std::vector<Shard>& all, double x, double y)
{
    double nearest = std::numeric_limits<double>::max();
    double second = nearest;
    const Shard* shard = all.data();
    for (const Shard& candidate : all) {
        const double distance = std::hypot(x - candidate.x, y - candidate.y);
        if (distance < nearest) {
            second = nearest;
            nearest = distance;
            shard = &candidate;
        } else if (distance < second) {
            second = distance;
        }
    }
    const double lead = smooth(2.2, 4.2, second - nearest);
    const double light = 1.08 - 0.16 * smooth(0, 40, nearest);
    return mixed(tint(0x17161F), shard->colour * light, lead);
}

void drawFruit(QPainter& painter, QPointF centre, double radius, unsigned light, unsigned dark)
{
    QRadialGradient shade(centre - QPointF(radius * 0.35, radius * 0.4), radius * 1.45);
    shade.setColorAt(0, colourOf(mixed(tint(light), tint(0xFFFFFF), 0.55)));
    shade.setColorAt(0.22, colourOf(tint(light)));
    shade.setColorAt(1, colourOf(tint(dark)));
    painter.setPen(Qt::NoPen);
    painter.setBrush(shade);
    painter.drawEllipse(centre, radius, radius);
}

void drawPear(QPainter& painter, QPointF foot, double size, double lean)
{
    painter.save();
    painter.translate(foot);
    painter.rotate(lean);
    QPainterPath pear;
    pear.moveTo(0, -size * 1.75);
    pear.cubicTo(size * 0.5, -size * 1.75, size * 0.3, -size * 1.1, size * 0.7, -size * 0.75);
    pear.cubicTo(size * 1.15, -size * 0.3, size * 0.75, size * 0.12, 0, size * 0.1);
    pear.cubicTo(-size * 0.75, size * 0.12, -size * 1.15, -size * 0.3, -size * 0.7, -size * 0.75);
    pear.cubicTo(-size * 0.3, -size * 1.1, -size * 0.5, -size * 1.75, 0, -size * 1.75);
    QRadialGradient shade(-size * 0.3, -size * 0.7, size * 1.5);
    shade.setColorAt(0, QColor(0xF6, 0xF0, 0xB0));
    shade.setColorAt(0.3, QColor(0xD5, 0xD0, 0x58));
    shade.setColorAt(1, QColor(0x6C, 0x77, 0x24));
    painter.setPen(Qt::NoPen);
    painter.setBrush(shade);
    painter.drawPath(pear);
    painter.setPen(QPen(QColor(0x5A, 0x3A, 0x20), size * 0.1, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(0, -size * 1.72), QPointF(size * 0.14, -size * 2.05));
    painter.restore();
}

void drawGrapes(QPainter& painter, QPointF top, double radius)
{
    for (int row = 0; row < 6; ++row) {
        for (int grape = 0; grape < 6 - row; ++grape) {
            const QPointF centre(top.x() + (grape - (5 - row) / 2.0) * radius * 1.7,
                                 top.y() + row * radius * 1.5);
            drawFruit(painter, centre, radius, 0x8A62C9, 0x2B1747);
        }
    }
}

void drawBowl(QPainter& painter)
{
    QPainterPath bowl;
    bowl.moveTo(168, 262);
    bowl.cubicTo(190, 346, 270, 352, 320, 352);
    bowl.cubicTo(370, 352, 450, 346, 472, 262);
    bowl.closeSubpath();
    QLinearGradient glaze(168, 0, 472, 0);
    glaze.setColorAt(0, QColor(0x6F, 0xA7, 0xD8));
    glaze.setColorAt(0.35, QColor(0x3D, 0x79, 0xB8));
    glaze.setColorAt(1, QColor(0x15, 0x35, 0x66));
    painter.setPen(Qt::NoPen);
    painter.setBrush(glaze);
    painter.drawPath(bowl);
    painter.setClipPath(bowl);
    painter.setPen(QPen(QColor(0xF3, 0xEE, 0xDC, 200), 5));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QRectF(150, 214, 340, 88));
    painter.setPen(QPen(QColor(0xF3, 0xEE, 0xDC, 120), 2));
    painter.drawEllipse(QRectF(150, 226, 340, 88));
    painter.setClipping(false);
}

// Outline of a hill whose right end meets its left one.
double periodicHill(double x, double width, double height, std::uint32_t seed)
{
    Dice dice(seed);
    double sum = 0;
    for (int wave = 1; wave <= 5; ++wave) {
        const double phase = dice.between(0, 6.28);
        sum += std::sin(2 * std::numbers::pi * wave * x / width + phase) / (wave + 0.4);
    }
    return height * sum / 1.6;
}

} // namespace

QImage stainedGlass()
{
    const std::vector<Shard> all = shards();
    return painted(640, 400, [&all](int x, int y) { return glassAt(all, x, y); });
}

QImage circlesAndLines()
{
    QImage image(480, 360, QImage::Format_RGB32);
    image.fill(QColor(0xF3, 0xEA, 0xD8));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xD9, 0x43, 0x2F));
    painter.drawEllipse(QPointF(170, 150), 104, 104);
    painter.setBrush(QColor(0x1F, 0x4E, 0x8C));
    painter.drawPie(QRectF(206, 92, 220, 220), 0, 180 * 16);
    painter.setBrush(QColor(0xF0, 0xB4, 0x2D));
    painter.drawPie(QRectF(206, 92, 220, 220), 180 * 16, 90 * 16);
    painter.setBrush(QColor(0x22, 0x22, 0x2A));
    painter.drawRect(QRectF(48, 262, 168, 24));
    painter.drawPolygon(QPolygonF({{372, 214}, {440, 330}, {304, 330}}));
    painter.setBrush(QColor(0xF3, 0xEA, 0xD8));
    painter.drawEllipse(QPointF(170, 150), 46, 46);
    painter.setBrush(QColor(0x22, 0x22, 0x2A));
    painter.drawEllipse(QPointF(170, 150), 20, 20);
    for (int line = 0; line < 7; ++line) {
        painter.setPen(QPen(QColor(0x22, 0x22, 0x2A), 1.5 + line * 0.6));
        painter.drawLine(QPointF(30 + line * 14, 336), QPointF(232 + line * 14, 24));
    }
    painter.setPen(QPen(QColor(0x3C, 0x8C, 0x7A), 12, Qt::SolidLine, Qt::FlatCap));
    painter.setBrush(Qt::NoBrush);
    painter.drawArc(QRectF(330, 20, 120, 120), 20 * 16, 250 * 16);
    return image;
}

QImage bowlOfFruit()
{
    static constexpr std::array kWall{Stop{0, 0x2C4A4A}, Stop{0.7, 0x5F7F74}};
    QImage image = painted(640, 400, [](int x, int y) {
        const double brush = cloudiness(x / 60.0, y / 90.0, 4, 22);
        const double light = std::exp(-std::hypot(x - 180.0, y - 90.0) / 260);
        const Tint wall = mixed(ramp(kWall, y / 400.0), tint(0xC9D6B5), light * 0.6);
        const double grain = noise(x / 90.0, y / 2.2, 25);
        const Tint table =
            mixed(tint(0x9A6237), tint(0x5E3620), smooth(290, 400, y)) * (0.85 + 0.3 * grain);
        return mixed(wall * (0.9 + 0.2 * brush), table, smooth(288, 291, y));
    });
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QRadialGradient shadow(QPointF(0, 0), 1);
    shadow.setColorAt(0, QColor(20, 10, 5, 170));
    shadow.setColorAt(1, QColor(20, 10, 5, 0));
    painter.save();
    painter.translate(350, 352);
    painter.scale(210, 30);
    painter.setBrush(shadow);
    painter.drawEllipse(QPointF(0, 0), 1, 1);
    painter.restore();
    drawPear(painter, {262, 262}, 62, -9);
    drawFruit(painter, {392, 214}, 58, 0xE4573B, 0x7A1520);
    drawFruit(painter, {324, 222}, 52, 0xF5A02E, 0xB4560F);
    drawFruit(painter, {212, 246}, 40, 0xE4573B, 0x7A1520);
    drawFruit(painter, {440, 250}, 36, 0xF5A02E, 0xB4560F);
    drawBowl(painter);
    drawGrapes(painter, {452, 262}, 13);
    drawFruit(painter, {118, 332}, 34, 0xF2CF45, 0xA87912);
    drawFruit(painter, {540, 336}, 36, 0xE4573B, 0x7A1520);
    return image;
}

QImage paperHills()
{
    constexpr int kWidth = 644;
    constexpr int kHeight = 400;
    struct Sheet {
        double base;
        double height;
        unsigned colour;
    };
    static constexpr std::array kSheets{Sheet{170, 26, 0xF7C59F}, Sheet{205, 34, 0xEF9F84},
                                        Sheet{245, 36, 0xD9737A}, Sheet{285, 34, 0xA9547F},
                                        Sheet{325, 30, 0x6D4180}, Sheet{365, 22, 0x3B2D66}};
    QImage image = painted(kWidth, kHeight, [](int x, int y) {
        Tint colour = mixed(tint(0xFFF0D9), tint(0xFBDDB8), y / 400.0);
        // The sun stands where neither reading of the picture cuts it.
        const double sun = std::hypot(x - 330.0, y - 118.0);
        colour = mixed(colour * (0.9 + 0.1 * smooth(44, 62, sun)), colour, smooth(60, 62, sun));
        colour = mixed(tint(0xF58E63), colour, smooth(47, 48.5, sun));
        std::uint32_t seed = 3;
        for (const Sheet& sheet : kSheets) {
            const double top = sheet.base + periodicHill(x, kWidth, sheet.height, seed++);
            const double above = top - y;
            colour = colour * (1 - 0.22 * smooth(16, 0, above) * (above > 0 ? 1 : 0));
            const Tint paper = tint(sheet.colour) * (0.97 + 0.06 * noise(x % kWidth, y, 40));
            colour = mixed(colour, paper, smooth(-0.7, 0.7, -above));
        }
        return colour;
    });
    return image;
}

} // namespace tools
