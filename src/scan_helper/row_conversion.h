#pragma once

#include "platform/devices/scan_facts.h"

#include <cstddef>
#include <sane/sane.h>
#include <span>
#include <variant>

namespace scan_helper {

// One frame as a scanner sends it, checked: its rows are long enough for what they say to hold, and
// no longer than kLongestRow.
struct FrameShape {
    static constexpr std::size_t kLongestRow = std::size_t(64) << 20;

    std::size_t width = 0;    // pixels
    std::size_t rows = 0;     // 0 where the scanner doesn't know
    std::size_t rowBytes = 0; // of the scanner, padding included
    int depth = 8;            // bits of a sample: 1, 8 or 16
    int samples = 1;          // of a pixel in this frame, 1 or 3
    int channels = 1;         // of a pixel in the picture, 1 or 3
    int channel = 0;          // where the frame's only sample belongs in the picture
    bool isLast = true;

    [[nodiscard]] std::size_t pictureRowBytes() const { return width * std::size_t(channels); }
    // Whether the scanner's bytes are the picture's.
    [[nodiscard]] bool isPlain() const
    {
        return depth == 8 && samples == channels && rowBytes == pictureRowBytes();
    }
};

// Unsupported for a kind of frame or depth that isn't known, Nonsense for one that can't be, and
// TooLarge beyond kLargestScan.
[[nodiscard]] std::variant<FrameShape, platform::ScanFailure>
checkedShape(const SANE_Parameters& parameters);

// Brings one row of the scanner to 8 bits a sample, into a row of the picture. Samples of 16 bits
// are in the machine's own byte order. One bit is black when set in a grey frame, and full
// intensity in a colour.
void convertRow(const FrameShape& shape, std::span<const std::byte> scanned,
                std::span<std::byte> picture);

} // namespace scan_helper
