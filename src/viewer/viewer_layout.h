#pragma once

#include <QRect>
#include <QSize>
#include <optional>

// Where the viewer's parts lie, and how far its bars reach. All lengths are pixels inside the
// control's border; the zoom is a whole factor from 1 to 15.
namespace viewer {

enum class BarMode { WhenNeeded = 0, Never = 1 };

// One value for the horizontal direction (or bar), one for the vertical.
struct BothWays {
    bool horizontal = false;
    bool vertical = false;

    friend bool operator==(const BothWays&, const BothWays&) = default;
};

struct LayoutRequest {
    QSize control;
    QSize picture; // at least one pixel each way
    int zoom = 1;
    int barsWidth = 15;
    BarMode barMode = BarMode::WhenNeeded;
    bool bestFit = false;
    // What shows before the pass: the first look at the room goes by it.
    BothWays barsVisible;
    bool cornerVisible = false;
};

struct ViewerLayout {
    QRect iDst;
    QRect hSB;
    QRect vSB;
    QRect corner;
    BothWays need; // the zoomed picture doesn't fit in this direction
    BothWays barsVisible;
    bool cornerVisible = false;
    int hMaximum = 0;
    int vMaximum = 0;
};

[[nodiscard]] ViewerLayout layoutViewer(const LayoutRequest& request);

// Bar values have 16 bits, so nothing is shown that zooms to 32768 pixels or more.
[[nodiscard]] bool exceedsZoomLimit(QSize picture, int zoom);

// The size that a control too small for its bars takes; nothing when it is large enough.
[[nodiscard]] std::optional<QSize> enlargedControl(QSize control, int barsWidth);

// A bar's value by halves of its maximum: 1 is the middle. Half pixels go to the even side.
[[nodiscard]] int valueAtHalves(int maximum, int halves);

// A bar's value after a layout pass. A view that was scrolled stays on the same spot in proportion
// above 100%; otherwise the picture is centred.
struct BarMemory {
    int value = 0;
    int maximum = 0;
};
[[nodiscard]] int valueAfterLayout(bool need, int maximum, BarMemory last, int zoom);

// Scrolling by steps. An amount of 0 still moves by 1.
[[nodiscard]] int scrollStep(int amount, int zoom);
[[nodiscard]] int scrolledToStart(int value, int step);
[[nodiscard]] int scrolledToEnd(int value, int step, int maximum);
[[nodiscard]] int loopedToStart(int value, int step, int maximum);
[[nodiscard]] int loopedToEnd(int value, int step, int maximum);

// A bar's value after the pointer has dragged the picture by so many pixels.
[[nodiscard]] int draggedValue(int value, int maximum, int distance);

// The picture pixel in the middle of the visible part, one direction at a time.
[[nodiscard]] int centrePixel(int controlLength, int pictureLength, int zoom, int value);
// The bar value that brings a picture pixel there.
[[nodiscard]] int valueForCentre(int pixel, int controlLength, int zoom, int maximum);

// The picture pixel under a place of the paint area, narrowed to 16 bits.
[[nodiscard]] int pixelAt(int value, int place, int zoom);

// One direction of the transfer that paints the area: whole picture pixels only, the fraction of a
// zoomed pixel taken up by a destination that begins outside.
struct Span {
    int source = 0;
    int sourceLength = 0;
    int destination = 0;
    int destinationLength = 0;
};
// With need: from the bar's value, with a spare pixel at the end. Without: the whole picture over
// the whole area.
[[nodiscard]] Span paintSpan(bool need, int value, int zoom, int areaLength, int pictureLength);
// The same without what lies behind the picture's end.
[[nodiscard]] Span cutToPicture(Span span, int zoom, int pictureLength);

} // namespace viewer
