#pragma once

#include <QPointF>
#include <QRectF>

// The area of a scan as it is dragged with the mouse or the keys; y grows downwards.
namespace acquire {

// The sides of an area that a drag takes along: all four move it, none begins another one.
struct AreaGrip {
    bool left = false;
    bool top = false;
    bool right = false;
    bool bottom = false;

    bool operator==(const AreaGrip&) const = default;
    [[nodiscard]] bool isNone() const { return *this == AreaGrip{}; }
    [[nodiscard]] bool isAll() const { return left && top && right && bottom; }
};

inline constexpr AreaGrip kWholeArea{true, true, true, true};

// What a press at a place takes, within reach of a side.
[[nodiscard]] AreaGrip gripAt(const QRectF& area, QPointF place, double reach);

// The area after its gripped sides went by a distance. It stays inside the bed and keeps its size
// where it moves; a side that is dragged beyond the other one becomes that one.
[[nodiscard]] QRectF dragged(const QRectF& area, AreaGrip grip, QPointF by, const QRectF& bed);

// The largest rectangle of the bed's proportions in the middle of another one.
[[nodiscard]] QRectF fittedInto(const QRectF& room, QSizeF bed);

// A rectangle of one of two coordinate systems in the other one.
[[nodiscard]] QRectF mapped(const QRectF& rectangle, const QRectF& from, const QRectF& to);

} // namespace acquire
