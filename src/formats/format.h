#pragma once

#include "formats/raw_image.h"

#include <string>

// Reads a PSD, TGA, TIFF, PCX or IFF picture into the record. The content alone decides which; the
// first reader that recognises the file gets it. Success isn't reported: a path that names no
// readable regular file below 2 GB, a file that no reader knows and one that its reader refuses
// leave the record as it was, apart from the fields that a late refusal has already rewritten. Not
// re-entrant, not for two threads at once.
void OpenRawImage(const std::string& path, RawImage& image);

namespace formats {

// The same, and tells whether a reader has accepted the file and given Pixels its size.
[[nodiscard]] bool readPicture(const std::string& path, RawImage& image);

} // namespace formats
