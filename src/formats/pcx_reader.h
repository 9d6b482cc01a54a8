#pragma once

#include "base/byte_reader.h"
#include "formats/raw_image.h"

#include <cstddef>
#include <span>

namespace formats {

// True for any file whose first byte is 10.
[[nodiscard]] bool isPcx(const base::ByteReader& file);

// Every file is taken as run-length encoded with eight bits a sample. One plane needs the marked
// palette at the file's end and gives depth 8; any other number of planes is read as three planes a
// line, and the depth is eight times the number.
// A refused file may have changed the sizes, the depth and the palette, in this order; Pixels
// changes only when the sizes make sense, and holds then as much as could be decoded.
// Tells whether Pixels got the size of the picture.
bool readPcx(std::span<const std::byte> file, RawImage& image);

} // namespace formats
