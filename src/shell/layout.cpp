#include "shell/layout.h"

namespace shell {

namespace {

constexpr int kRightMargin = 40;
constexpr int kPaneBelowViewerTop = 640; // caption and menu of the main window
constexpr int kPanViewFromRight = 3600;
constexpr int kPanViewBelowTop = 50;
constexpr int kPanViewSide = 3500;
constexpr int kZoomToolFromEdge = 480;

int viewerTop(const WindowMeasures& measures)
{
    return measures.coolBarTop + measures.coolBarHeight;
}

} // namespace

BrowseLayout browseLayout(const WindowMeasures& measures)
{
    BrowseLayout layout;
    layout.viewer.left = measures.paneWidth - kViewerUnderPane;
    layout.viewer.width = measures.outerWidth - measures.paneWidth - kRightMargin;
    layout.viewer.top = viewerTop(measures);
    layout.viewer.height = measures.innerHeight - measures.coolBarHeight - measures.stripHeight;
    layout.paneLeft = measures.left;
    layout.paneTop = layout.viewer.top + kPaneBelowViewerTop;
    layout.aviLeft = measures.innerWidth - measures.aviWidth - 1;
    layout.aviTop = 1;
    return layout;
}

Extent pictureLayoutOnSwitch(const WindowMeasures& measures, const Extent& viewer)
{
    Extent extent = viewer;
    extent.left = 1;
    extent.width = measures.innerWidth;
    return extent;
}

Extent pictureLayoutOnResize(const WindowMeasures& measures, const Extent& viewer)
{
    Extent extent = viewer;
    extent.top = viewerTop(measures);
    extent.height = measures.innerHeight - extent.top - measures.stripHeight;
    return extent;
}

Extent panViewPlace(int formWidth, int viewerTopTwips)
{
    return {formWidth - kPanViewFromRight, viewerTopTwips + kPanViewBelowTop, kPanViewSide,
            kPanViewSide};
}

Extent zoomToolPlace(const Extent& viewer, int width, int height)
{
    return {viewer.left + viewer.width - width - kZoomToolFromEdge,
            viewer.top + viewer.height - height - kZoomToolFromEdge, width, height};
}

} // namespace shell
