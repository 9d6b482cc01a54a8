#include "poster.h"

#include "paint.h"

#include <QTransform>

#include <array>
#include <cmath>

namespace tools {

namespace {

struct Balloon {
    QPointF top;
    double size; // half the width of the envelope
    QRgb first;
    QRgb second;
};

// Gores are ever narrower ovals over one another, so that they bulge as those of a real balloon.
void addBalloon(Poster& poster, const Balloon& balloon)
{
    static constexpr std::array kWidths{1.0, 0.78, 0.52, 0.22};
    const QPointF centre(balloon.top.x(), balloon.top.y() + balloon.size);
    const double mouth = centre.y() + balloon.size * 1.38;
    for (std::size_t gore = 0; gore < kWidths.size(); ++gore) {
        const double half = balloon.size * kWidths[gore];
        QPainterPath envelope;
        envelope.moveTo(centre.x(), balloon.top.y());
        envelope.cubicTo(centre.x() + half * 1.34, balloon.top.y(), centre.x() + half * 1.2,
                         centre.y() + balloon.size * 0.72, centre.x() + half * 0.2, mouth);
        envelope.lineTo(centre.x() - half * 0.2, mouth);
        envelope.cubicTo(centre.x() - half * 1.2, centre.y() + balloon.size * 0.72,
                         centre.x() - half * 1.34, balloon.top.y(), centre.x(), balloon.top.y());
        poster.add(gore % 2 == 0 ? balloon.first : balloon.second, envelope);
    }
    const double rope = balloon.size * 0.03;
    for (const double side : {-1.0, 1.0}) {
        QPainterPath line;
        line.moveTo(centre.x() + side * balloon.size * 0.17, mouth);
        line.lineTo(centre.x() + side * balloon.size * 0.17 + rope, mouth);
        line.lineTo(centre.x() + side * balloon.size * 0.13 + rope, mouth + balloon.size * 0.34);
        line.lineTo(centre.x() + side * balloon.size * 0.13, mouth + balloon.size * 0.34);
        line.closeSubpath();
        poster.add(0xFF5A3A28, line);
    }
    poster.addRectangle(0xFF8A5A34,
                        QRectF(centre.x() - balloon.size * 0.17, mouth + balloon.size * 0.3,
                               balloon.size * 0.34, balloon.size * 0.24));
    poster.addRectangle(0xFF5A3A28,
                        QRectF(centre.x() - balloon.size * 0.19, mouth + balloon.size * 0.28,
                               balloon.size * 0.38, balloon.size * 0.06));
}

void addHills(Poster& poster, QRgb colour, double base, double height, double length, double phase)
{
    QPainterPath hills;
    hills.moveTo(0, poster.height());
    for (int x = 0; x <= poster.width(); x += 8) {
        hills.lineTo(x, base - height * std::sin(x / length + phase) -
                            height * 0.4 * std::sin(x / length * 2.3 + phase * 2));
    }
    hills.lineTo(poster.width(), poster.height());
    hills.closeSubpath();
    poster.add(colour, hills);
}

void addCloud(Poster& poster, QPointF centre, double size)
{
    QPainterPath cloud;
    cloud.setFillRule(Qt::WindingFill);
    cloud.addEllipse(centre, size, size * 0.34);
    cloud.addEllipse(centre + QPointF(-size * 0.35, -size * 0.22), size * 0.42, size * 0.32);
    cloud.addEllipse(centre + QPointF(size * 0.2, -size * 0.3), size * 0.5, size * 0.4);
    poster.add(0xFFFFFAF0, cloud.simplified());
}

void addSail(Poster& poster, QRgb colour, QPointF head, QPointF tack, QPointF clew, double belly)
{
    QPainterPath sail;
    sail.moveTo(head);
    sail.lineTo(tack);
    sail.lineTo(clew);
    sail.quadTo((head + clew) / 2 + QPointF(belly, 0), head);
    poster.add(colour, sail);
}

void addGull(Poster& poster, QPointF at, double size)
{
    QPainterPath gull;
    gull.moveTo(at.x() - size, at.y() - size * 0.35);
    gull.quadTo(at.x() - size * 0.4, at.y() - size * 0.5, at.x(), at.y());
    gull.quadTo(at.x() + size * 0.4, at.y() - size * 0.5, at.x() + size, at.y() - size * 0.35);
    gull.quadTo(at.x() + size * 0.4, at.y() - size * 0.3, at.x(), at.y() + size * 0.16);
    gull.quadTo(at.x() - size * 0.4, at.y() - size * 0.3, at.x() - size, at.y() - size * 0.35);
    poster.add(0xFF3B4E6B, gull);
}

} // namespace

void Poster::add(QRgb colour, const QPainterPath& path)
{
    const auto outlines =
        path.toSubpathPolygons(QTransform::fromScale(kUnitsPerPixel, kUnitsPerPixel));
    for (const QPolygonF& outline : outlines) {
        m_areas.push_back({colour, outline.toPolygon()});
    }
}

void Poster::addEllipse(QRgb colour, QPointF centre, double across, double down)
{
    QPainterPath path;
    path.addEllipse(centre, across, down);
    add(colour, path);
}

void Poster::addRectangle(QRgb colour, const QRectF& rectangle)
{
    QPainterPath path;
    path.addRect(rectangle);
    add(colour, path);
}

void Poster::addBands(QRgb from, QRgb to, double top, double bottom, int bands)
{
    const double step = (bottom - top) / bands;
    for (int band = 0; band < bands; ++band) {
        const double share = band / double(bands - 1);
        const QRgb colour = pixelOf(mixed(tint(from & 0xFFFFFFU), tint(to & 0xFFFFFFU), share));
        // Each band reaches to the end, so that rounding leaves no gap before the next one.
        addRectangle(colour, QRectF(0, top + band * step, m_width, bottom - top - band * step));
    }
}

Poster sailingBoat()
{
    Poster poster(640, 400);
    poster.addBands(0xFF57B3E6, 0xFFFFE9C4, 0, 250, 26);
    poster.addEllipse(0xFFFFF0C0, {496, 128}, 58, 58);
    poster.addEllipse(0xFFFFD35C, {496, 128}, 44, 44);
    addCloud(poster, {140, 78}, 66);
    addCloud(poster, {356, 46}, 40);
    addHills(poster, 0xFF7FB0B8, 236, 18, 120, 0.4);
    addHills(poster, 0xFF4E8F8C, 246, 10, 70, 2.1);
    poster.addBands(0xFF2F93C4, 0xFF0D4A80, 250, 400, 18);
    for (int glint = 0; glint < 9; ++glint) {
        const double y = 258 + glint * 14;
        poster.addEllipse(0xFFFFE9B0, {496 + 9.0 * (glint % 3 - 1), y}, 26 - glint * 1.6, 1.6);
    }
    addSail(poster, 0xFFF7F3E8, {262, 64}, {262, 292}, {146, 292}, -46);
    addSail(poster, 0xFFE4523B, {276, 88}, {276, 288}, {384, 288}, 34);
    addSail(poster, 0xFFF9A23A, {276, 188}, {276, 288}, {384, 288}, 22);
    poster.addRectangle(0xFF6B4226, QRectF(266, 52, 6, 262));
    QPainterPath hull;
    hull.moveTo(118, 306);
    hull.lineTo(424, 300);
    hull.quadTo(396, 352, 350, 354);
    hull.lineTo(176, 354);
    hull.quadTo(140, 350, 118, 306);
    poster.add(0xFF23395B, hull);
    QPainterPath trim;
    trim.moveTo(118, 306);
    trim.lineTo(424, 300);
    trim.lineTo(417, 312);
    trim.lineTo(123, 317);
    trim.closeSubpath();
    poster.add(0xFFF7F3E8, trim);
    addHills(poster, 0xFF1C6FA6, 360, 5, 26, 0.6);
    addHills(poster, 0xFF13578C, 376, 6, 34, 2.6);
    addGull(poster, {420, 86}, 16);
    addGull(poster, {458, 60}, 11);
    addGull(poster, {84, 176}, 12);
    return poster;
}

Poster hotAirBalloons()
{
    Poster poster(640, 400);
    poster.addBands(0xFF3D7FD0, 0xFFFFE0B8, 0, 350, 32);
    addCloud(poster, {90, 210}, 54);
    addCloud(poster, {560, 96}, 60);
    addCloud(poster, {404, 250}, 40);
    addBalloon(poster, {{496, 150}, 30, 0xFF7450CF, 0xFFFFD257});
    addBalloon(poster, {{92, 60}, 38, 0xFF1C8A57, 0xFFF7F3E8});
    addHills(poster, 0xFF9DB8B0, 320, 14, 110, 1.2);
    addHills(poster, 0xFF6BA36F, 344, 16, 90, 3.0);
    addBalloon(poster, {{366, 40}, 58, 0xFF2A6BD6, 0xFFF7F3E8});
    addBalloon(poster, {{212, 70}, 84, 0xFFE4523B, 0xFFFFC24A});
    addHills(poster, 0xFF3F7F4D, 372, 12, 70, 0.3);
    addHills(poster, 0xFF2A5F3B, 390, 8, 50, 2.2);
    return poster;
}

} // namespace tools
