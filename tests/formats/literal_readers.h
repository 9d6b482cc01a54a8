#pragma once

#include "formats/raw_image.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

// A slow second implementation of the five readers, one statement a rule: files read byte by byte
// at a one-based position, arrays that know their bounds, and a failed access that ends the reader
// on the spot. The readers of the program must agree with it on every file.
namespace literal {

struct Image {
    std::int32_t Width = 0;
    std::int32_t Height = 0;
    std::uint8_t BitDepth = 0;
    std::vector<formats::PaletteEntry> Palette;
    std::vector<std::uint8_t> Pixels;

    // What was told to the user, in order.
    std::vector<std::string> messages;
    std::vector<double> fractions;
};

void readPcx(std::span<const std::byte> file, Image& image);
void readTga(std::span<const std::byte> file, Image& image);
void readTiff(std::span<const std::byte> file, Image& image);
void readPsd(std::span<const std::byte> file, Image& image);
void readIff(std::span<const std::byte> file, Image& image);

// All of them behind their tests, as OpenRawImage does it.
void read(std::span<const std::byte> file, Image& image);

} // namespace literal
