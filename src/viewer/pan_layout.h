#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <optional>

// The pan view's numbers: the miniature inside the window's client area, and the rectangle that
// marks what the viewer shows. Pixels, zero at the client's top left.
namespace viewer {

// Where the miniature lies: never larger than the picture, centred.
[[nodiscard]] QRect miniaturePlace(QSize client, QSize picture);

// What the viewer shows, in picture pixels times zoom: bar values and the size of the paint area.
struct ViewedPart {
    QPoint barValues;
    QSize area;
    int zoom = 1;
};
[[nodiscard]] QRect clipRectangle(const QRect& miniature, QSize picture, const ViewedPart& viewed);

// The places that the pointer may take while it drags the rectangle from the place where it was
// pressed, so that the rectangle stays inside the miniature. In client pixels, corners included; at
// least one pixel large.
[[nodiscard]] QRect pointerRange(const QRect& miniature, const QRect& clip, QPoint pressed);
[[nodiscard]] QPoint confined(QPoint pointer, const QRect& range);

// A bar's value for the rectangle's place, one direction at a time; nothing where the bar stays as
// it is.
struct PanSpan {
    int miniatureStart = 0;
    int miniatureLength = 0;
    int clipStart = 0;
    int clipLength = 0;
};
[[nodiscard]] std::optional<int> barValueFor(const PanSpan& span, int pictureLength, int zoom,
                                             int maximum);

} // namespace viewer
