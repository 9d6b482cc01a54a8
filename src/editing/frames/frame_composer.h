#pragma once

#include <QImage>
#include <QSize>
#include <functional>

namespace frames {

class FrameTiles;

// In pixels of the picture.
struct FrameMeasures {
    // A side of the square tiles, and so the thickness of the frame and the way from tile to tile;
    // above 0.
    int tile = 0;
    int margin = 0; // left free beyond the frame at the right and at the bottom
};

// Numbers of the preview, whose pixels are that many of the screen to a unit of length. It is a
// reduced picture and so has half the thickness, halves rounded to the even number.
[[nodiscard]] FrameMeasures previewMeasures(int thickness, double screenRatio);
[[nodiscard]] FrameMeasures finalMeasures(int thickness);

// The size of a preview: the picture's proportions, as large as fits into the room, and a pixel at
// least in both directions. Empty for an empty picture.
[[nodiscard]] QSize previewSize(QSize picture, QSize room);

enum class Composed { Whole, Partly, Stopped };

// Told now and then how much of the edges stands (0 to 1); false stops.
using Progress = std::function<bool(double)>;

// Draws a frame over the rim of a picture (32 bits a pixel): the edges tile by tile, then the
// corners over them. The first tile that is missing ends it, with what was drawn until then.
Composed drawFrame(QImage& picture, const FrameMeasures& measures, FrameTiles& tiles,
                   const Progress& progress = {});

} // namespace frames
