#pragma once

#include "platform/pictures/bmp_header.h"

#include <QByteArray>
#include <QImage>

namespace platform {

// Unpacks the run-length codes of a BMP file onto an image of its size. False when there are no
// pixels before the codes end; codes that run out later leave the rest as it is, and runs that
// leave the picture are cut.
bool unpackBmpRle(QImage& image, const QByteArray& codes, const BmpHeader& header);

} // namespace platform
