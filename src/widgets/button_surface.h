#pragma once

#include "base/colours.h"

#include <QSize>

class QPainter;

namespace widgets {

// Which frames a bevel consists of.
enum class BevelRings { Outer, OuterAndInner };

// The few primitives that buttons are drawn with. A pixel here is a device-independent one, so that
// lines keep their weight and stay sharp on every screen. Rectangles are X, Y, width, height; the
// ends of a line belong to it. The painter is borrowed.
class ButtonSurface {
public:
    ButtonSurface(QPainter& painter, QSize size)
        : m_painter(painter)
        , m_size(size)
    {
    }

    [[nodiscard]] int width() const { return m_size.width(); }
    [[nodiscard]] int height() const { return m_size.height(); }
    [[nodiscard]] QPainter& painter() const { return m_painter; }

    // Filled, or the four lines of its edge only.
    void FillBox(int x, int y, int w, int h, base::Colour colour, bool outline = false) const;

    // An ellipse that fills the rectangle, with an edge of 2 pixels.
    void DrawOval(int x, int y, int w, int h, base::Colour pen, base::Colour fill) const;

    // Along a row or a column, from left to right or top to bottom; nothing the other way round.
    void DrawLine(int x1, int y1, int x2, int y2, base::Colour colour) const;
    void SetDot(int x, int y, base::Colour colour) const;

    // A frame around the whole surface: c1 at the top and left and c2 at the bottom and right of
    // the outer ring, c3 and c4 the same of the inner one. Offset -1 puts the outer ring on the
    // edge, each step more one pixel further in.
    void DrawBevel(base::Colour c1, base::Colour c2, base::Colour c3, base::Colour c4, int offset,
                   BevelRings rings = BevelRings::OuterAndInner) const;

    // A rectangle of every second pixel.
    void DrawDottedBox(int x, int y, int w, int h, base::Colour colour) const;

private:
    void drawRing(int inset, base::Colour light, base::Colour dark) const;

    QPainter& m_painter;
    QSize m_size;
};

} // namespace widgets
