#include "icon_writer.h"

#include "files.h"

#include <cassert>

namespace tools {

namespace {

constexpr unsigned kIcon = 1;
constexpr unsigned kCursor = 2;
constexpr unsigned kHeaderBytes = 6;
constexpr unsigned kEntryBytes = 16;

// Colours bottom row first, then a one-bit mask of the transparent pixels for readers without
// alpha, its rows padded to four bytes.
Bytes bitmapBody(const QImage& image)
{
    const auto width = static_cast<unsigned>(image.width());
    const auto height = static_cast<unsigned>(image.height());
    ByteSink sink;
    sink.little32(40);
    sink.little32(width);
    sink.little32(height * 2); // the mask counts as a second half
    sink.little16(1);
    sink.little16(32);
    sink.zeros(24);
    for (int y = image.height() - 1; y >= 0; --y) {
        for (int x = 0; x < image.width(); ++x) {
            sink.little32(image.pixel(x, y));
        }
    }
    const int maskBytes = (image.width() + 31) / 32 * 4;
    for (int y = image.height() - 1; y >= 0; --y) {
        for (int column = 0; column < maskBytes; ++column) {
            unsigned bits = 0;
            for (int x = column * 8; x < column * 8 + 8; ++x) {
                const bool hidden = x < image.width() && qAlpha(image.pixel(x, y)) == 0;
                bits = (bits << 1U) | (hidden ? 1U : 0U);
            }
            sink.byte(bits);
        }
    }
    return sink.bytes();
}

Bytes body(const QImage& image)
{
    if (image.width() >= 256) {
        return encoded(image, "PNG");
    }
    return bitmapBody(image.convertToFormat(QImage::Format_ARGB32));
}

// The words at 4 and 6 of an entry are planes and bits of an icon, but the hot spot of a cursor.
Bytes directory(std::span<const QImage> images, unsigned kind, unsigned fourth, unsigned sixth)
{
    ByteSink sink;
    sink.little16(0);
    sink.little16(kind);
    sink.little16(static_cast<unsigned>(images.size()));
    ByteSink bodies;
    const std::size_t bodiesAt = kHeaderBytes + kEntryBytes * images.size();
    for (const QImage& image : images) {
        assert(image.width() <= 256 && image.height() <= 256);
        const Bytes data = body(image);
        sink.byte(static_cast<unsigned>(image.width())); // 256 is written as 0
        sink.byte(static_cast<unsigned>(image.height()));
        sink.little16(0);
        sink.little16(fourth);
        sink.little16(sixth);
        sink.little32(static_cast<std::uint32_t>(data.size()));
        sink.little32(static_cast<std::uint32_t>(bodiesAt + bodies.size()));
        bodies.append(data);
    }
    sink.append(bodies.bytes());
    return sink.bytes();
}

} // namespace

Bytes iconFile(std::span<const QImage> images)
{
    return directory(images, kIcon, 1, 32);
}

Bytes cursorFile(const QImage& image, QPoint hotSpot)
{
    return directory(std::span(&image, 1), kCursor, static_cast<unsigned>(hotSpot.x()),
                     static_cast<unsigned>(hotSpot.y()));
}

} // namespace tools
