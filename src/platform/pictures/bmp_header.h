#pragma once

#include <QtGlobal>
#include <array>
#include <cstddef>
#include <optional>
#include <span>

namespace platform {

enum class BmpCoding { Plain, Rle8, Rle4 };

// What the head of a BMP file says, checked: sizes are positive, coding and depth go together.
struct BmpHeader {
    int width = 0;
    int height = 0;
    bool topDown = false;
    int depth = 0; // 1, 4, 8, 16, 24 or 32 bits a pixel
    BmpCoding coding = BmpCoding::Plain;
    // Bits of red, green and blue in pixels of 16 and 32 bits.
    std::array<quint32, 3> masks{};
    // Depths up to 8; opaque pixels, black beyond the file's table.
    std::array<quint32, 256> palette{};
    qint64 pixelOffset = 0; // from the start of the file

    // Bytes from one stored row to the next, and those that hold pixels.
    [[nodiscard]] qint64 stride() const { return (qint64(width) * depth + 31) / 32 * 4; }
    [[nodiscard]] qint64 rowBytes() const { return (qint64(width) * depth + 7) / 8; }
};

// Bytes from the start of a file that hold the longest head and its colours.
constexpr std::size_t kLongestBmpHead = 14 + 124 + 256 * 4;

// From the start of a file, which may be shorter than that.
[[nodiscard]] std::optional<BmpHeader> readBmpHeader(std::span<const std::byte> start);

} // namespace platform
