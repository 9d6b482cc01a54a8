#pragma once

#include "base/colours.h"
#include "platform/pictures/picture.h"

#include <QImage>

class QPainter;

// The 32-bit picture that the viewer paints: rows top down, four bytes a pixel in the order blue,
// green, red, unused. A picture handed in shares its pixels with the one that stands here, so
// showing it costs no second copy.
class cDIB32 {
public:
    // A section of the size, filled with the colour; whatever stood here goes first. False, and
    // empty, for a size that no section can have.
    bool Create(int width, int height, base::Colour colour);

    // Takes over a bitmap picture. Any other type, and Nothing, is refused: result is false and
    // what stood here stays.
    void CreateFromStdPicture(const platform::Picture& picture, bool& result);

    // Copies from a surface into the whole section, from (x, y) of the surface.
    bool LoadBlt(const QImage& surface, int x, int y);

    // Whether a section exists; the surface itself; its first byte, null when there is none.
    [[nodiscard]] bool hDIB() const { return !m_section.isNull(); }
    [[nodiscard]] const QImage& hDIBDC() const { return m_section; }
    [[nodiscard]] const uchar* DIBitsPtr() const { return m_section.constBits(); }

    // Bytes.
    [[nodiscard]] qint64 Size() const { return qint64(BytesPerScanLine()) * Height(); }
    [[nodiscard]] int BytesPerScanLine() const { return Width() * 4; }

    // Pixels, 0 when there is no section.
    [[nodiscard]] int Width() const { return m_section.width(); }
    [[nodiscard]] int Height() const { return m_section.height(); }

    // Paints a part of the picture scaled: averaged where it shrinks, in whole pixels where it
    // grows by whole factors. Target lengths are device-independent pixels. Without a section
    // nothing happens and result stays as it was. The mode isn't used: scaling is always the one
    // told.
    void Stretch(QPainter& target, int dstX, int dstY, int dstWidth, int dstHeight, int srcX,
                 int srcY, int srcWidth, int srcHeight, int mode, bool& result) const;

    void Destroy() { m_section = QImage(); }

private:
    QImage m_section;
};
