#pragma once

#include "byte_sink.h"

#include <QImage>

#include <span>

namespace tools {

// An .avi clip without sound whose frames are plain 24-bit bitmaps, with an index. The frames must
// be of one size, and the list not empty.
[[nodiscard]] Bytes aviFile(std::span<const QImage> frames, unsigned framesPerSecond);

} // namespace tools
