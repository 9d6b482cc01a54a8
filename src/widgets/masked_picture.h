#pragma once

#include "base/colours.h"

#include <QImage>
#include <optional>

// Pictures as buttons show them. All results are QImage::Format_ARGB32 with the size and the device
// pixel ratio of their source; a pixel that is not shown has alpha 0, so that what lies behind it
// stays.
namespace widgets {

enum class Tint { Colours, Grey };

// The picture without its pixels of the mask colour (all kept where there is no mask), in its
// colours or in greys.
[[nodiscard]] QImage maskedPicture(const QImage& picture, std::optional<base::Colour> mask,
                                   Tint tint);

// One colour wherever the picture shows something. A soft one lets two parts of what lies behind it
// through for one part of the colour.
enum class Shade { Full, Soft };
[[nodiscard]] QImage silhouette(const QImage& picture, std::optional<base::Colour> mask,
                                base::Colour colour, Shade shade);

// 0.3, 0.59 and 0.11 of red, green and blue.
[[nodiscard]] int greyOf(int red, int green, int blue);

} // namespace widgets
