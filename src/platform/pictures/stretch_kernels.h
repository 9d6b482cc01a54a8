#pragma once

#include "platform/pictures/stretch_axis.h"

#include <QImage>

// The pixel loops of scaled transfers. Source and target are different images of 32 bits a pixel,
// and every span lies inside the source.
namespace platform {

// Takes the first pixel of each span.
void copyPixels(QImage& target, const StretchAxis& columns, const QImage& source,
                const StretchAxis& rows);

// Weighs all pixels of the spans, every channel for itself, rounded to nearest.
void blendPixels(QImage& target, const StretchAxis& columns, const QImage& source,
                 const StretchAxis& rows);

} // namespace platform
