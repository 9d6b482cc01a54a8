#include "acquire/scan_area.h"

#include <algorithm>
#include <cmath>

namespace acquire {

AreaGrip gripAt(const QRectF& area, QPointF place, double reach)
{
    const QRectF around = area.adjusted(-reach, -reach, reach, reach);
    if (area.isEmpty() || !around.contains(place)) {
        return {};
    }
    const auto isNear = [reach](double a, double b) { return std::abs(a - b) <= reach; };
    AreaGrip grip{isNear(place.x(), area.left()), isNear(place.y(), area.top()),
                  isNear(place.x(), area.right()), isNear(place.y(), area.bottom())};
    // Of an area that is narrower than the reach the sides that make it larger.
    grip.left = grip.left && !grip.right;
    grip.top = grip.top && !grip.bottom;
    return grip.isNone() ? kWholeArea : grip;
}

QRectF dragged(const QRectF& area, AreaGrip grip, QPointF by, const QRectF& bed)
{
    if (grip.isAll()) {
        const double x = std::clamp(by.x(), std::min(0.0, bed.left() - area.left()),
                                    std::max(0.0, bed.right() - area.right()));
        const double y = std::clamp(by.y(), std::min(0.0, bed.top() - area.top()),
                                    std::max(0.0, bed.bottom() - area.bottom()));
        return area.translated(x, y);
    }
    return area.adjusted(grip.left ? by.x() : 0, grip.top ? by.y() : 0, grip.right ? by.x() : 0,
                         grip.bottom ? by.y() : 0)
               .normalized() &
           bed;
}

QRectF fittedInto(const QRectF& room, QSizeF bed)
{
    QRectF fitted(QPointF(0, 0), bed.scaled(room.size(), Qt::KeepAspectRatio));
    fitted.moveCenter(room.center());
    return fitted;
}

QRectF mapped(const QRectF& rectangle, const QRectF& from, const QRectF& to)
{
    const double scaleX = to.width() / from.width();
    const double scaleY = to.height() / from.height();
    return {to.left() + (rectangle.left() - from.left()) * scaleX,
            to.top() + (rectangle.top() - from.top()) * scaleY, rectangle.width() * scaleX,
            rectangle.height() * scaleY};
}

} // namespace acquire
