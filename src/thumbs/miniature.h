#pragma once

#include <QImage>
#include <QString>

namespace thumbs {

inline constexpr int kMiniatureSide = 128; // pixels

// A picture file in small: at most kMiniatureSide wide and high, never enlarged, with so many image
// pixels for each of these as the ratio says. Decodes no more than a tile of it needs, shows no box
// and leaves no trace. Null for what is no picture, and for files in the own formats that are too
// large to be read for this.
[[nodiscard]] QImage miniature(const QString& path, double ratio);

} // namespace thumbs
