#pragma once

#include "base/byte_reader.h"
#include "formats/raw_image.h"

#include <cstddef>
#include <span>

namespace formats {

// True when the file begins with "II" or "MM".
[[nodiscard]] bool isTiff(const base::ByteReader& file);

// Reads an uncompressed RGB picture whose directory stands directly behind the header. All rows are
// one run, which begins at the strip's offset plus the width less two.
// A directory that is refused, or holds a number beyond 16 bits, leaves the record untouched. After
// that the depth, the sizes and the palette change; Pixels stays when it can't have that size. What
// the file lacks is black, and so is a picture of another photometric interpretation than 1 to 3.
// Tells whether Pixels got the size of the picture.
bool readTiff(std::span<const std::byte> file, RawImage& image);

} // namespace formats
