#include "widgets/button_surface.h"

#include "widgets/colour_conversion.h"

#include <QPainter>

namespace widgets {

namespace {

constexpr double kOvalPen = 2.0;

} // namespace

void ButtonSurface::FillBox(int x, int y, int w, int h, base::Colour colour, bool outline) const
{
    if (w <= 0 || h <= 0) {
        return;
    }
    if (!outline) {
        m_painter.fillRect(x, y, w, h, toQColor(colour));
        return;
    }
    FillBox(x, y, w, 1, colour);
    FillBox(x, y + h - 1, w, 1, colour);
    FillBox(x, y + 1, 1, h - 2, colour);
    FillBox(x + w - 1, y + 1, 1, h - 2, colour);
}

void ButtonSurface::DrawOval(int x, int y, int w, int h, base::Colour pen, base::Colour fill) const
{
    m_painter.save();
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.setPen(QPen(toQColor(pen), kOvalPen));
    m_painter.setBrush(toQColor(fill));
    const double half = kOvalPen / 2;
    m_painter.drawEllipse(QRectF(x, y, w, h).adjusted(half, half, -half, -half));
    m_painter.restore();
}

void ButtonSurface::DrawLine(int x1, int y1, int x2, int y2, base::Colour colour) const
{
    if (x2 < x1 || y2 < y1) {
        return;
    }
    FillBox(x1, y1, x2 - x1 + 1, y2 - y1 + 1, colour);
}

void ButtonSurface::SetDot(int x, int y, base::Colour colour) const
{
    FillBox(x, y, 1, 1, colour);
}

void ButtonSurface::DrawBevel(base::Colour c1, base::Colour c2, base::Colour c3, base::Colour c4,
                              int offset, BevelRings rings) const
{
    const int outer = offset + 1;
    drawRing(outer, c1, c2);
    if (rings == BevelRings::OuterAndInner) {
        drawRing(outer + 1, c3, c4);
    }
}

void ButtonSurface::DrawDottedBox(int x, int y, int w, int h, base::Colour colour) const
{
    const int right = x + w - 1;
    const int bottom = y + h - 1;
    const auto dot = [&](int column, int row) {
        if ((column + row) % 2 == 0) {
            SetDot(column, row, colour);
        }
    };
    for (int column = x; column <= right; ++column) {
        dot(column, y);
        dot(column, bottom);
    }
    for (int row = y + 1; row < bottom; ++row) {
        dot(x, row);
        dot(right, row);
    }
}

void ButtonSurface::drawRing(int inset, base::Colour light, base::Colour dark) const
{
    const int right = width() - 1 - inset;
    const int bottom = height() - 1 - inset;
    DrawLine(inset, inset, right - 1, inset, light);
    DrawLine(inset, inset + 1, inset, bottom - 1, light);
    DrawLine(inset, bottom, right, bottom, dark);
    DrawLine(right, inset, right, bottom - 1, dark);
}

} // namespace widgets
