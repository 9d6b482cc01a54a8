#pragma once

#include "base/colours.h"

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>
#include <optional>

// The numbers behind the windows that stand over the frozen screen.
namespace acquire {

// The rectangle between two corners in any order. What lies on its right and bottom edge isn't in
// it, so two corners on one line give an empty one.
[[nodiscard]] QRect rectangleBetween(QPoint corner, QPoint opposite);

// "120x80".
[[nodiscard]] QString sizeTextOf(QSize size);

// The top left corner of a text in the middle of the rectangle, halves to the even pixel; nothing
// where the rectangle isn't larger than the text both ways.
[[nodiscard]] std::optional<QPoint> sizeTextPlace(const QRect& rectangle, QSize text);

// The pixel whose colour decides about the text's.
[[nodiscard]] QPoint middleOf(const QRect& rectangle);

// Black or white, whichever the text over a colour is drawn in. Blue counts most by far.
[[nodiscard]] base::Colour sizeTextColour(base::Colour behind);

// Where the box of the colour picker is while the pointer is at a place of a window: right below
// it, or on the other side where the window ends.
[[nodiscard]] QPoint pickerBoxPlace(QSize window, QPoint pointer);

} // namespace acquire
