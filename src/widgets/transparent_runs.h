#pragma once

#include "base/colours.h"

#include <QImage>
#include <QRegion>
#include <vector>

// The stretches of one colour in a picture, and the shape that is left without them.
namespace widgets {

enum class ScanDirection { Rows, Columns };

// A stretch along a line: pixels start to start + length - 1 of the row (or column) line.
struct TransparentRun {
    int start = 0;
    int line = 0;
    int length = 0;

    bool operator==(const TransparentRun&) const = default;
};

// All runs of the colour, line by line. The picture's alpha is not looked at.
[[nodiscard]] std::vector<TransparentRun> findRuns(const QImage& picture, base::Colour colour,
                                                   ScanDirection direction);

// The rectangle of the size without the runs.
[[nodiscard]] QRegion regionWithout(const std::vector<TransparentRun>& runs, QSize size,
                                    ScanDirection direction);

} // namespace widgets
