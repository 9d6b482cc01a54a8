#pragma once

#include "base/twips.h"

#include <QPointF>

namespace files {

// Where the pointer is, as events tell it.
struct EventPlace {
    float x; // twips of the view, as the other
    float y;
};

inline EventPlace eventPlace(QPointF pixels)
{
    const QPointF twips = pixels * base::kTwipsPerPixel;
    return {static_cast<float>(twips.x()), static_cast<float>(twips.y())};
}

} // namespace files
