#pragma once

#include <QImage>
#include <QSize>
#include <cstddef>
#include <cstdint>
#include <span>

class QPainter;

// Block transfers between 32-bit surfaces (QImage::Format_RGB32 or ARGB32, ratio 1), under their
// platform names. The source is cut to its surface; the work is proportional to the pixels that the
// target shows, never to the whole source, except where an average has to look at all of it.
namespace platform {

enum class StretchMode {
    ColorOnColor = 3, // repeats or leaves out pixels
    HalfTone = 4,     // averages when shrinking, repeats pixels at whole factors when enlarging,
                      // and blends neighbours at other factors
};

// A negative width covers the pixels x, x - 1, ... from its far edge on and mirrors, and so does a
// negative height. Parts of the target area outside its surface change nothing about the scale;
// target pixels whose source lies outside the source's surface stay as they are.
struct Area {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

// Copies unscaled.
bool BitBlt(QImage& target, int x, int y, int width, int height, const QImage& source, int sourceX,
            int sourceY);

// Copies scaled. 1:1 is a plain copy of bytes; a mirrored 1:1 is exact. False when either area is
// empty, a surface is null or hasn't 32 bits a pixel, or there is no memory for it; a surface of
// more than four million columns or rows counts as that. The target may be the source itself. A
// source with transparency lands over white on a target without.
bool StretchBlt(QImage& target, Area targetArea, const QImage& source, Area sourceArea,
                StretchMode mode = StretchMode::HalfTone);

// The same onto whatever a painter paints on; target lengths are device-independent pixels. Sharp
// at every screen ratio: a picture pixel becomes whole device pixels where the scale allows.
bool StretchBlt(QPainter& target, Area targetArea, const QImage& source, Area sourceArea,
                StretchMode mode = StretchMode::HalfTone);

// A new surface of that size, filled from the area: for a caller that keeps what it shows. Null
// when it can't be made; the source's format otherwise.
[[nodiscard]] QImage stretched(const QImage& source, Area sourceArea, QSize size,
                               StretchMode mode = StretchMode::HalfTone);

// A device-independent bitmap header with its colour table, as far as transfers need it.
struct BitmapHeader {
    std::int32_t width = 0;
    std::int32_t height = 0; // negative: rows run top down
    std::uint16_t planes = 1;
    std::uint16_t bitCount = 0;
    std::uint32_t compression = 0;
    struct Entry {
        std::uint8_t blue = 0;
        std::uint8_t green = 0;
        std::uint8_t red = 0;
        std::uint8_t reserved = 0;
    };
    Entry colours[256] = {}; // depth 8 only
};

// Draws a bitmap's rows 1:1 at the target's top left. Rows are taken at a stride rounded up to four
// bytes; bytes beyond the end of bits count as zero. Depths 8, 16 (5 bits a channel), 24 and 32 are
// drawn, others draw nothing.
bool StretchDIBits(QImage& target, const BitmapHeader& header, std::span<const std::byte> bits);

} // namespace platform
