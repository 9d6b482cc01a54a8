#pragma once

#include <QImage>

#include <span>

namespace tools {

// The small labelled tag of a file type that lies over the top left corner of its tile.
struct Badge {
    const char* name;  // of the icon file, without ending
    const char* label; // letters A to Z, digits, or one of the marks "?" and "#"
    QRgb colour;
};

[[nodiscard]] std::span<const Badge> badges();

// The tag on a transparent square of 16 or 24 pixels; its letters are set pixel by pixel, because
// no scaled drawing stays readable at that height.
[[nodiscard]] QImage drawBadge(const Badge& badge, int side);

} // namespace tools
