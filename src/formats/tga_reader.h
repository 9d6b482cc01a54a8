#pragma once

#include "base/byte_reader.h"
#include "formats/raw_image.h"

#include <cstddef>
#include <span>

namespace formats {

// True for an uncompressed true-colour picture of 24 bits. The test looks at two bytes only, so
// files of other formats may pass it.
[[nodiscard]] bool isTga(const base::ByteReader& file);

// The pixels are taken from directly behind the header, bottom row first, whatever the header says
// of an identification field, a colour map or the origin. What the file lacks is black.
// Sizes, depth and palette change first; Pixels stays when it can't have that size.
// Tells whether Pixels got the size of the picture.
bool readTga(std::span<const std::byte> file, RawImage& image);

} // namespace formats
