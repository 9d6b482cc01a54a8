#pragma once

#include <QSize>
#include <cstddef>
#include <optional>
#include <span>

namespace metafile_helper {

// Natural sizes at 96 dots an inch, in pixels, from the heads of metafiles.

// From the frame in hundredths of a millimetre, or from the bounds where there is no frame.
[[nodiscard]] std::optional<QSize> emfSize(std::span<const std::byte> file);

// From the head that placeable files have; nothing without one.
[[nodiscard]] std::optional<QSize> placeableSize(std::span<const std::byte> file);

// The size in the same proportions, with sides between one pixel and the longest that is drawn.
[[nodiscard]] QSize drawnSize(double width, double height);

} // namespace metafile_helper
