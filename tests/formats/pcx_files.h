#pragma once

#include "formats/file_bytes.h"

#include <string>

// What a PCX header says; the fields that no reader looks at hold odd values.
struct PcxFields {
    int xMin = 0;
    int yMin = 0;
    int xMax = 0;
    int yMax = 0;
    unsigned planes = 1;
    int bytesPerLine = 0;
};

inline PcxFields pcxFields(int width, int height, unsigned planes, int bytesPerLine)
{
    return {0, 0, width - 1, height - 1, planes, bytesPerLine};
}

inline FileBytes pcxHeader(const PcxFields& fields)
{
    FileBytes file;
    file.bytes({10, 99, 77, 1});
    file.little16(fields.xMin).little16(fields.yMin);
    file.little16(fields.xMax).little16(fields.yMax);
    file.little16(300).little16(300).fill(48, 0x5A).byte(0).byte(fields.planes);
    file.little16(fields.bytesPerLine).little16(1).fill(58, 0xEE);
    return file;
}

// The marked palette at the file's end: entry i is red i, green 255 - i, blue 7.
inline FileBytes pcxPalette()
{
    FileBytes palette;
    palette.byte(12);
    for (unsigned i = 0; i < 256; ++i) {
        palette.bytes({i, 255 - i, 7});
    }
    return palette;
}

// A whole file of one grey; the width is even, as lines are stored.
inline std::string greyPcx(int width, int height)
{
    FileBytes file = pcxHeader(pcxFields(width, height, 3, width));
    file.fill(std::size_t(width) * std::size_t(height) * 3, 0x40);
    const std::span<const std::byte> bytes = file;
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}
