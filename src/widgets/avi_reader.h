#pragma once

#include <QImage>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace widgets {

// A short silent clip, wholly unpacked.
struct AviClip {
    int frameMilliseconds = 100;
    std::vector<QImage> frames; // QImage::Format_RGB32, all of one size; at least one
};

// Reads the first video stream of an AVI file: uncompressed with 8 or 24 bits, or run-length coded
// with 8 bits. Nothing for other files and codings, for clips without a frame, and for clips whose
// frames are more than 10,000 or would take more than 64 MB.
[[nodiscard]] std::optional<AviClip> readAvi(std::span<const std::byte> bytes);

} // namespace widgets
