#pragma once

#include "base/byte_reader.h"
#include "formats/raw_image.h"

#include <cstddef>
#include <span>

namespace formats {

// True when the file begins with "FORM".
[[nodiscard]] bool isIff(const base::ByteReader& file);

// Reads a compressed picture of eight planes, taking each byte of its unpacked body for a pixel.
// Chunks are found by the text of their tags, wherever it stands first, and their lengths are not
// looked at: the body runs to the end of the file.
// Until the planes and the compression are known to fit, the record is untouched. After that the
// sizes, the depth and the palette change; without a body, or with one that can't have that size,
// Pixels stays. What the body lacks is 0.
// Tells whether Pixels got the size of the picture.
bool readIff(std::span<const std::byte> file, RawImage& image);

} // namespace formats
