#pragma once

#include "platform/pictures/bmp_header.h"

#include <QImage>

class QIODevice;

namespace platform {

// The pixels of a BMP file in QImage::Format_RGB32, from a device that can seek. Null when rows are
// missing, when run-length codes lead outside, or without the memory. What run-length codes leave
// out shows the first colour.
[[nodiscard]] QImage decodeBmp(QIODevice& file, const BmpHeader& header);

} // namespace platform
