#pragma once

#include "base/byte_reader.h"
#include "formats/raw_image.h"

#include <cstddef>
#include <span>

namespace formats {

// The message that is reported when the planes end before they are complete.
inline constexpr const char* kPlanesFailed = "Error Open!";

// True when the file begins with "8BPS".
[[nodiscard]] bool isPsd(const base::ByteReader& file);

// Reads the flattened picture at the end of an RGB file with eight bits a channel. A file whose
// header is refused leaves the record untouched. Anything that goes wrong in the planes is reported
// through the hooks; the picture is then shown as far as it goes, with the rest black.
// A raw file of three channels is asked for a fourth plane, so it is reported although its picture
// is complete. The progress hook hears the row, from 0, by the number of rows less one; nothing for
// a single row, and not every row for more than 32768 of them.
// Tells whether Pixels got the size of the picture.
bool readPsd(std::span<const std::byte> file, RawImage& image);

} // namespace formats
