#pragma once

#include "base/colours.h"
#include "platform/pictures/picture.h"

#include <QImage>
#include <QRectF>

namespace platform {

// An off-screen surface with a Picture, a background colour, and drawing that stays. Not a widget;
// a window that shows one paints drawnImage(). Lengths are pixels; colours are base::Colour.
class PictureBox {
public:
    PictureBox() = default;
    PictureBox(int width, int height);

    [[nodiscard]] int width() const { return m_surface.width(); }
    [[nodiscard]] int height() const { return m_surface.height(); }

    // A new size keeps the drawing that still fits; the rest shows the background. Sizes below 1 or
    // beyond 512 MB of pixels leave the box as it was and give false.
    bool resize(int width, int height);

    [[nodiscard]] base::Colour BackColor() const { return m_backColor; }
    void setBackColor(base::Colour colour); // clears the drawing, as cls() does

    // The picture set, and setting one: the box takes its size and shows it. Nothing empties the
    // picture and clears the drawing but leaves the size.
    [[nodiscard]] const Picture& picture() const { return m_picture; }
    void setPicture(const Picture& picture);

    // What stands on the box now, the picture and all drawing on it, as a bitmap picture.
    [[nodiscard]] Picture drawnImage() const { return Picture(m_surface); }

    // The surface for block transfers, QImage::Format_RGB32, ratio 1.
    [[nodiscard]] QImage& surface() { return m_surface; }
    [[nodiscard]] const QImage& surface() const { return m_surface; }

    // Clears to the picture, or to the background where there is none.
    void cls();

    // Draws a picture scaled from its source rectangle to a destination rectangle; a negative width
    // or height of the destination draws towards the left or upwards from its corner, mirrored.
    // Shrinking averages. Fractions are rounded to the nearest pixel, halves to the even one.
    void paintPicture(const Picture& picture, double left, double top, double width, double height);
    void paintPicture(const Picture& picture, QRectF destination, QRectF source);

    // Lines and boxes with both corners included.
    void line(int x1, int y1, int x2, int y2, base::Colour colour);
    void frameBox(int x1, int y1, int x2, int y2, base::Colour colour);
    void fillBox(int x1, int y1, int x2, int y2, base::Colour colour);

    // The colour of a pixel, the background outside.
    [[nodiscard]] base::Colour point(int x, int y) const;

private:
    QImage m_surface;
    Picture m_picture;
    base::Colour m_backColor = base::rgb(255, 255, 255);
};

} // namespace platform
