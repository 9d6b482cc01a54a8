#pragma once

#include "byte_sink.h"
#include "indexed_picture.h"

#include <QImage>

namespace tools {

// Files of the formats that the program decodes itself, in the variants that it reads. A row must
// come to a multiple of four bytes, or the picture is shown sheared.

// 256 colours on one plane, or three planes; the width must be even.
[[nodiscard]] Bytes pcxFile(const IndexedPicture& picture);
[[nodiscard]] Bytes pcxFile(const QImage& image);

// The flattened picture alone, three channels, packed.
[[nodiscard]] Bytes psdFile(const QImage& image);

// 24 bits, bottom row first.
[[nodiscard]] Bytes tgaFile(const QImage& image);

// RGB in one strip. The program starts to read it (width - 2) bytes late, so that much of it is
// given again behind the end: a picture that continues from its right edge to its left one, with a
// width of 2 more than a multiple of 3, looks right there and in every other reader, turned by a
// third.
[[nodiscard]] Bytes tiffFile(const QImage& image);

// 256 colours, one byte a pixel, packed.
[[nodiscard]] Bytes iffFile(const IndexedPicture& picture);

// The same photograph with a note which way it is up: 1 as it stands, 6 to be turned clockwise.
[[nodiscard]] Bytes withOrientation(const Bytes& jpeg, unsigned orientation);

} // namespace tools
