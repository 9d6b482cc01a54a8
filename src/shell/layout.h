#pragma once

// Where the parts of the main window lie, as plain numbers in twips.
namespace shell {

struct Extent {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    friend bool operator==(const Extent&, const Extent&) = default;
};

struct WindowMeasures {
    int outerWidth = 0; // of the main window, frame included
    int innerWidth = 0; // of its work area
    int innerHeight = 0;
    int left = 0; // of the main window on the screen
    int coolBarTop = 0;
    int coolBarHeight = 0;
    int stripHeight = 0; // Picture4 along the bottom edge
    int paneWidth = 0;   // the browser pane's outer width
    int aviWidth = 0;
};

// What a frame of four pixels a side adds to the inner width of a window; the numbers below count
// on it, and a window without a frame of its own adds it before it asks.
inline constexpr int kFrameWidth = 120;

// How far the viewer reaches in under the frame of the browser pane. A pane without a frame, which
// has its own parts up to its edge, adds it before it asks.
inline constexpr int kViewerUnderPane = 80;

struct BrowseLayout {
    Extent viewer;
    int paneLeft = 0; // as a window of its own would stand on the screen
    int paneTop = 0;
    int aviLeft = 0;
    int aviTop = 0;
};

// Browse mode: the pane lies over the left part, and the viewer reaches a little under it.
BrowseLayout browseLayout(const WindowMeasures& measures);

// Picture mode. On the switch the viewer takes the whole width; a later resize changes only top and
// height.
Extent pictureLayoutOnSwitch(const WindowMeasures& measures, const Extent& viewer);
Extent pictureLayoutOnResize(const WindowMeasures& measures, const Extent& viewer);

// Place of the pan view when it is switched on: in the upper right corner, a square.
Extent panViewPlace(int formWidth, int viewerTop);

// First place of the zoom tool, whose size is given: over the viewer's lower right corner, clear of
// the scroll bars.
Extent zoomToolPlace(const Extent& viewer, int width, int height);

} // namespace shell
