#pragma once

#include <QImage>
#include <cstddef>
#include <span>
#include <vector>

namespace widgets {

enum class AviCoding { Dib8, Dib24, Rle8 };

// How the frames of a clip are stored.
struct AviFormat {
    int width = 0;  // pixels
    int height = 0; // pixels
    bool topDown = false;
    AviCoding coding = AviCoding::Dib24;
    std::vector<QRgb> palette; // of the codings with 8 bits
};

// Draws one stored frame over the picture of the frame before (QImage::Format_RGB32, of the
// format's size). What the bytes don't cover stays as it was.
void drawAviFrame(QImage& picture, const AviFormat& format, std::span<const std::byte> bytes);

} // namespace widgets
