#pragma once

#include "formats/file_bytes.h"

// An 18-byte header of an uncompressed 24-bit picture.
inline FileBytes tgaHeader(int width, int height)
{
    FileBytes file;
    file.bytes({0, 0, 2, 0, 0, 0, 0, 0}).little16(0).little16(0);
    file.little16(width).little16(height).bytes({24, 0});
    return file;
}
