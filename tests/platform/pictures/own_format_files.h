#pragma once

#include <cstddef>
#include <string>

// Small files in the own formats for tests.
namespace test {

// A PCX file of 8 bits a pixel without runs; pixel n holds n modulo 64. Entry i of the palette is
// red i, green 255 - i, blue i / 2.
inline std::string pcxFile(int width, int height)
{
    std::string bytes(128, '\0');
    const auto put16 = [&bytes](std::size_t at, int value) {
        bytes[at] = char(value & 0xFF);
        bytes[at + 1] = char(value >> 8);
    };
    bytes[0] = 10;
    bytes[1] = 5;
    bytes[2] = 1;
    bytes[3] = 8;
    put16(8, width - 1);
    put16(10, height - 1);
    bytes[65] = 1;
    put16(66, width);
    for (int i = 0; i < width * height; ++i) {
        bytes += char(i % 64);
    }
    bytes += char(12);
    for (int i = 0; i < 256; ++i) {
        bytes += char(i);
        bytes += char(255 - i);
        bytes += char(i / 2);
    }
    return bytes;
}

} // namespace test
