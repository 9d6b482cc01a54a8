#include "viewer/viewer_layout.h"

#include "base/numbers.h"

#include <algorithm>
#include <limits>

namespace viewer {

namespace {

constexpr int kZoomedLimit = 32768;

int toPixels(double length)
{
    return static_cast<int>(base::roundHalfEven(length));
}

// One bar's presence changes the room for the other, hence two passes. A need seen in the first
// stays, even where the second would have room.
void findNeed(const LayoutRequest& request, ViewerLayout& layout)
{
    const QSize zoomed = request.picture * request.zoom;
    for (int pass = 0; pass < 2; ++pass) {
        const int besideBar = layout.barsVisible.vertical ? request.barsWidth : 0;
        const int aboveBar = layout.barsVisible.horizontal ? request.barsWidth : 0;
        layout.need.horizontal |= zoomed.width() > request.control.width() - besideBar;
        layout.need.vertical |= zoomed.height() > request.control.height() - aboveBar;
        if (request.barMode == BarMode::WhenNeeded) {
            layout.barsVisible = layout.need;
            // Once shown, the corner stays when one bar goes.
            layout.cornerVisible |= layout.need.horizontal && layout.need.vertical;
        } else if (request.barMode == BarMode::Never) {
            layout.barsVisible = {};
            layout.cornerVisible = false;
        }
    }
}

void placeBars(const LayoutRequest& request, ViewerLayout& layout)
{
    const int bar = request.barsWidth;
    const int width = request.control.width();
    const int height = request.control.height();
    const int beside = layout.barsVisible.vertical ? bar : 0;
    const int below = layout.barsVisible.horizontal ? bar : 0;
    layout.hSB = QRect(0, height - bar, width - beside, bar);
    layout.vSB = QRect(width - bar, 0, bar, height - below);
    layout.corner = QRect(width - bar, height - bar, bar, bar);
}

QRect fittedArea(QSize control, QSize picture)
{
    QSize area = picture;
    if (control != picture) {
        const double byHeight = static_cast<double>(control.height()) / picture.height();
        const double byWidth = static_cast<double>(control.width()) / picture.width();
        // A very long picture still shows as a line.
        if (byHeight < byWidth) {
            area = QSize(std::max(toPixels(picture.width() * byHeight), 1), control.height());
        } else {
            area = QSize(control.width(), std::max(toPixels(picture.height() * byWidth), 1));
        }
    }
    return {QPoint((control.width() - area.width()) / 2, (control.height() - area.height()) / 2),
            area};
}

QRect zoomedArea(const LayoutRequest& request, const ViewerLayout& layout)
{
    const int roomX =
        request.control.width() - (layout.barsVisible.vertical ? request.barsWidth : 0);
    const int roomY =
        request.control.height() - (layout.barsVisible.horizontal ? request.barsWidth : 0);
    const QSize zoomed = request.picture * request.zoom;
    const int width = layout.need.horizontal ? roomX : zoomed.width();
    const int height = layout.need.vertical ? roomY : zoomed.height();
    return {layout.need.horizontal ? 0 : (roomX - width) / 2,
            layout.need.vertical ? 0 : (roomY - height) / 2, width, height};
}

} // namespace

ViewerLayout layoutViewer(const LayoutRequest& request)
{
    ViewerLayout layout;
    layout.barsVisible = request.barsVisible;
    layout.cornerVisible = request.cornerVisible;
    if (request.bestFit) {
        layout.barsVisible = {};
        layout.cornerVisible = false;
        placeBars(request, layout);
        layout.iDst = fittedArea(request.control, request.picture);
        return layout;
    }
    findNeed(request, layout);
    placeBars(request, layout);
    layout.iDst = zoomedArea(request, layout);
    // A need that only the first pass saw can leave more room than picture.
    const QSize zoomed = request.picture * request.zoom;
    layout.hMaximum = std::max(zoomed.width() - layout.iDst.width(), 0);
    layout.vMaximum = std::max(zoomed.height() - layout.iDst.height(), 0);
    return layout;
}

bool exceedsZoomLimit(QSize picture, int zoom)
{
    const qint64 longest = std::max(picture.width(), picture.height());
    return longest * zoom >= kZoomedLimit;
}

std::optional<QSize> enlargedControl(QSize control, int barsWidth)
{
    const QSize least(2 * barsWidth, 2 * barsWidth);
    const QSize enlarged = control.expandedTo(least);
    return enlarged == control ? std::nullopt : std::optional(enlarged);
}

int valueAtHalves(int maximum, int halves)
{
    return toPixels(maximum * halves / 2.0);
}

int valueAfterLayout(bool need, int maximum, BarMemory last, int zoom)
{
    if (!need || last.maximum == 0 || zoom == 1) {
        return valueAtHalves(maximum, 1);
    }
    const double share = static_cast<double>(last.value) / last.maximum;
    return std::clamp(toPixels(maximum * share), 0, maximum);
}

int scrollStep(int amount, int zoom)
{
    const qint64 step = static_cast<qint64>(amount) * zoom;
    return static_cast<int>(std::clamp<qint64>(step, 1, std::numeric_limits<qint16>::max()));
}

int scrolledToStart(int value, int step)
{
    return value - step < 1 ? 0 : value - step;
}

int scrolledToEnd(int value, int step, int maximum)
{
    return value + step < maximum ? value + step : maximum;
}

int loopedToStart(int value, int step, int maximum)
{
    return value - step < 0 ? maximum : value - step;
}

int loopedToEnd(int value, int step, int maximum)
{
    return value + step > maximum ? 0 : value + step;
}

int draggedValue(int value, int maximum, int distance)
{
    if (distance < 1 && value - distance >= maximum) {
        return maximum;
    }
    if (distance > 0 && value - distance < 1) {
        return 0;
    }
    return value - distance;
}

int centrePixel(int controlLength, int pictureLength, int zoom, int value)
{
    const int gap = std::max(controlLength - pictureLength * zoom, 0);
    return toPixels((controlLength - gap) * 0.5 + value) / zoom;
}

int valueForCentre(int pixel, int controlLength, int zoom, int maximum)
{
    const double wished = static_cast<double>(pixel) * zoom - controlLength / 2.0;
    return toPixels(std::clamp<double>(wished, 0, maximum));
}

int pixelAt(int value, int place, int zoom)
{
    return std::clamp<int>((value + place) / zoom, std::numeric_limits<qint16>::min(),
                           std::numeric_limits<qint16>::max());
}

Span paintSpan(bool need, int value, int zoom, int areaLength, int pictureLength)
{
    if (!need) {
        return {0, pictureLength, 0, areaLength};
    }
    const int whole = areaLength / zoom;
    return {value / zoom, whole + 2, -(value % zoom), whole * zoom + 2 * zoom};
}

Span cutToPicture(Span span, int zoom, int pictureLength)
{
    const int behind = span.source + span.sourceLength - pictureLength;
    if (behind > 0) {
        span.sourceLength -= behind;
        span.destinationLength -= behind * zoom;
    }
    return span;
}

} // namespace viewer
