#pragma once

#include "formats/file_bytes.h"

// The form's head, which is followed by its chunks.
inline FileBytes iffForm()
{
    return FileBytes().text("FORM").big32(1000).text("ILBM");
}

inline FileBytes iffHeaderChunk(int width, int height, unsigned planes = 8,
                                unsigned compression = 1)
{
    FileBytes chunk;
    chunk.text("BMHD").big32(20).big16(width).big16(height).big16(0).big16(0);
    chunk.byte(planes).byte(0).byte(compression).byte(0).big16(0).bytes({1, 1}).big16(1).big16(1);
    return chunk;
}

// Entry i is red i, green 255 - i, blue 7.
inline FileBytes iffColourChunk()
{
    FileBytes chunk;
    chunk.text("CMAP").big32(768);
    for (unsigned i = 0; i < 256; ++i) {
        chunk.bytes({i, 255 - i, 7});
    }
    return chunk;
}

inline FileBytes iffBodyChunk(const FileBytes& data)
{
    return FileBytes().text("BODY").big32(static_cast<std::int64_t>(data.size())).append(data);
}

inline FileBytes iffPicture(int width, int height, const FileBytes& data)
{
    return iffForm()
        .append(iffHeaderChunk(width, height))
        .append(iffColourChunk())
        .append(iffBodyChunk(data));
}
