#pragma once

#include <QPointF>
#include <QSize>

namespace thumbs {

// The size at which a picture stands in a box (a tile without its border): shrunk to fit, never
// enlarged. A side may become 0, and the picture then gets no tile.
[[nodiscard]] QSize fitPicture(QSize picture, QSize box);

// From the tile's corner to the picture's, in fractions of a pixel.
[[nodiscard]] QPointF pictureOffset(QSize cell, QSize picture);

} // namespace thumbs
