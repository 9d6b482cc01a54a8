#pragma once

#include "byte_sink.h"

#include <QImage>

#include <array>
#include <optional>

namespace tools {

// A picture of at most 256 colours: one palette index a pixel, top row first, without padding.
struct IndexedPicture {
    int width = 0;
    int height = 0;
    std::array<QRgb, 256> palette{};
    Bytes pixels;
};

// The colours that fit the picture best. What a pixel loses by it is handed on to its neighbours,
// so that skies stay smooth; a picture of few colours keeps them exactly.
[[nodiscard]] std::optional<IndexedPicture> indexed(const QImage& image);

// The bytes of a GIF file; none for a picture that GIF can't tell.
[[nodiscard]] Bytes gifFile(const IndexedPicture& picture);

} // namespace tools
