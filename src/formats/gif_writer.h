#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace formats {

struct GifColour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend bool operator==(const GifColour&, const GifColour&) = default;
};

// Head and colour table of a device-independent bitmap, as the desktop hands it out. Its rows are
// stored from the bottom up, each padded to four bytes.
struct GifBitmapInfo {
    std::uint32_t headerSize = 40;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::uint16_t planes = 1;
    std::uint16_t bitCount = 8;
    std::uint32_t compression = 0;
    // Colours in the table; 0 means all that the bit count allows.
    std::uint32_t usedColours = 0;
    std::array<GifColour, 256> colours{};
};

struct GifScreenDescriptor {
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    std::uint8_t flags = 0;
    std::uint8_t background = 0;
    std::uint8_t aspect = 0;
};

struct GifImageDescriptor {
    std::uint16_t left = 0;
    std::uint16_t top = 0;
    // Bit 7: a colour table of its own follows. Bit 6: the rows are interlaced.
    std::uint8_t flags = 0;
};

// Bytes from one stored row to the next.
[[nodiscard]] std::size_t gifStride(const GifBitmapInfo& info);

} // namespace formats

// Appends the image block (descriptor, table if it has its own, compressed pixels) to the file.
// Refuses with nothing appended unless the bitmap has eight uncompressed bits a pixel, sizes that
// GIF can tell, at least one pixel, and bits for all its rows.
[[nodiscard]] bool EncodeGifImage(const formats::GifBitmapInfo* bitmapInfo,
                                  std::span<const std::byte> bits, std::vector<std::byte>& file,
                                  formats::GifImageDescriptor imageDescriptor,
                                  const formats::GifScreenDescriptor& screenDescriptor);

// Appends the bitmap as a whole GIF87a file. False when the image is refused: nothing is appended
// for sizes that GIF can't tell, and only header and table for fewer than eight bits a pixel. More
// bits count as eight.
[[nodiscard]] bool WriteGifFile(const formats::GifBitmapInfo& bitmapInfo,
                                std::span<const std::byte> bits, std::vector<std::byte>& file);
