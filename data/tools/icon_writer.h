#pragma once

#include "byte_sink.h"

#include <QImage>
#include <QPoint>

#include <span>

namespace tools {

// An .ico file that holds every image with 32-bit alpha. Images of 256 pixels are stored as PNG,
// smaller ones as bitmaps, which every reader of icons takes. Nothing may be wider or higher than
// 256 pixels.
[[nodiscard]] Bytes iconFile(std::span<const QImage> images);

// A .cur file of one image; the hot spot is counted in its pixels from the top left.
[[nodiscard]] Bytes cursorFile(const QImage& image, QPoint hotSpot);

} // namespace tools
