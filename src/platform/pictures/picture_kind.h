#pragma once

#include <cstddef>
#include <span>

namespace platform {

// The picture files that the system's loader takes. Others, though libraries here could read them,
// stay unknown.
enum class PictureKind { Unknown, Bmp, Gif, Jpeg, Icon, Metafile, EnhancedMetafile };

// Bytes from the start of a file that are enough to tell its kind.
constexpr std::size_t kPictureKindBytes = 44;

// The kind by the first bytes of a file. Cursors count as icons.
[[nodiscard]] PictureKind pictureKind(std::span<const std::byte> start);

} // namespace platform
