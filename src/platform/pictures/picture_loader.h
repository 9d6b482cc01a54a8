#pragma once

#include "platform/pictures/picture.h"

#include <QSize>
#include <QString>
#include <optional>

// The system's picture loader. It decides by content, never by name, and takes BMP, GIF (first
// frame), JPEG (turned by its EXIF orientation, CMYK converted), ICO and CUR (largest image), WMF
// and EMF. Anything else, and anything whose pixels would take more than 512 MB, is an error.
namespace platform {

// A bitmap picture for every format; icons and metafiles are drawn at their natural size with their
// transparency kept. Nothing on any error, without a message.
[[nodiscard]] std::optional<Picture> loadPicture(const QString& path);

struct TilePicture {
    Picture picture;   // at least as large as the box asked for in one direction, or natural size
    QSize naturalSize; // pixels of the whole picture, orientation applied
};

// For a tile: decodes at the smallest scale whose result still covers fit (a size with the
// picture's own proportions, computed by the caller's function from the natural size). A JPEG is
// decoded at a fraction of its size; the other formats come at their natural size.
using TileFit = QSize (*)(QSize naturalSize, QSize box);
[[nodiscard]] std::optional<TilePicture> loadTilePicture(const QString& path, QSize box,
                                                         TileFit fit);

} // namespace platform
