#pragma once

#include "platform/pictures/colour_table.h"

#include <QImage>
#include <cstddef>
#include <optional>
#include <vector>

namespace platform {

// A picture of at most 256 colours, laid out as a device-independent bitmap: one byte a pixel, the
// bottom row first, each row padded with zeros to four bytes.
struct IndexedPicture {
    int width = 0;
    int height = 0;
    std::size_t stride = 0;
    std::vector<std::byte> bits;
    // Entries not in use are black.
    ColourTable table{};
};

// An eight-bit copy of a picture. One of at most 256 colours keeps them exactly, numbered as they
// first appear from the top left; any other gets the table that fits it best, and every pixel the
// entry nearest to it. Transparency is ignored. Nothing for a null image, or without the memory.
[[nodiscard]] std::optional<IndexedPicture> reduceColours(const QImage& image);

} // namespace platform
