#pragma once

#include <QImage>
#include <QSize>

#include <filesystem>

namespace tools {

// The drawing scaled to fill the size, on a transparent ground; a null image, after a word on the
// error stream, when the file isn't a drawing.
[[nodiscard]] QImage drawSvg(const std::filesystem::path& path, QSize size);

// The drawing at a multiple of the size that it states itself.
[[nodiscard]] QImage drawSvgScaled(const std::filesystem::path& path, int factor);

// The drawing at its own size in the middle of an opaque canvas, turned clockwise about the middle.
[[nodiscard]] QImage drawSvgTurned(const std::filesystem::path& path, QSize canvas, double degrees,
                                   QRgb ground);

} // namespace tools
