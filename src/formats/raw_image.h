#pragma once

#include "formats/byte_buffer.h"

#include <cstdint>
#include <vector>

namespace formats {

struct PaletteEntry {
    std::uint8_t blue = 0;
    std::uint8_t green = 0;
    std::uint8_t red = 0;
    std::uint8_t reserved = 0;

    friend bool operator==(const PaletteEntry&, const PaletteEntry&) = default;
};

} // namespace formats

// The raster record that the readers fill. It isn't cleared between files: a file that is refused
// leaves it alone, and one that is refused late has rewritten some fields, so that the sizes and
// Pixels need not agree. Whoever draws it checks that.
struct RawImage {
    // Pixels; both may be zero or negative.
    std::int32_t Width = 0;
    std::int32_t Height = 0;

    // 8 (palette) or 24; a PCX file may leave any other multiple of 8.
    std::uint8_t BitDepth = 0;

    // 256 entries at depth 8, otherwise empty.
    std::vector<formats::PaletteEntry> Palette;

    // Top row first, rows packed without padding: one palette index a pixel at depth 8, else three
    // bytes in the order blue, green, red.
    formats::ByteBuffer Pixels;
};
