#pragma once

#include <QColor>
#include <QPainterPath>
#include <QPolygon>

#include <vector>

namespace tools {

// A picture of plain areas, each over the ones before it, as metafiles hold it.
class Poster {
public:
    struct Area {
        QRgb colour;
        QPolygon outline; // in units
    };

    // Units of the outlines to a pixel at 96 dots to the inch, fine enough for smooth curves.
    static constexpr int kUnitsPerPixel = 10;

    Poster(int width, int height)
        : m_width(width)
        , m_height(height)
    {
    }

    // The path is in pixels.
    void add(QRgb colour, const QPainterPath& path);
    void addEllipse(QRgb colour, QPointF centre, double across, double down);
    void addRectangle(QRgb colour, const QRectF& rectangle);

    // Horizontal bands from one colour to the other.
    void addBands(QRgb from, QRgb to, double top, double bottom, int bands);

    [[nodiscard]] int width() const { return m_width; }   // in pixels
    [[nodiscard]] int height() const { return m_height; } // in pixels
    [[nodiscard]] const std::vector<Area>& areas() const { return m_areas; }

private:
    int m_width;
    int m_height;
    std::vector<Area> m_areas;
};

[[nodiscard]] Poster sailingBoat();
[[nodiscard]] Poster hotAirBalloons();

} // namespace tools
