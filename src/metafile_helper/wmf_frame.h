#pragma once

#include <QRectF>
#include <QSize>
#include <cstddef>
#include <optional>
#include <span>

namespace metafile_helper {

// The part of a Windows metafile's world that its picture shows.
struct WmfFrame {
    QSize size;  // pixels
    QRectF area; // in the device units of the library that plays the file
};

// From the placeable head, or the first window that the file sets. Nothing when it has neither, or
// measures in other units than its own; its contents then tell.
[[nodiscard]] std::optional<WmfFrame> wmfFrame(std::span<const std::byte> file);

} // namespace metafile_helper
