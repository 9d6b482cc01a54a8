#include "thumbs/pane/pane_layout.h"

#include <algorithm>

namespace thumbs {

namespace {

constexpr int kBesideTallBar = 620;
constexpr int kAroundViewer = 2020;

} // namespace

int clampedPaneWidth(int width)
{
    return std::clamp(width, kPaneMinimumWidth, kPaneMaximumWidth);
}

int paneHeight(int coolBarHeight, int viewerHeight, int mainWindowHeight)
{
    return coolBarHeight == kBothBandsHeight ? viewerHeight + kBesideTallBar
                                             : mainWindowHeight - kAroundViewer;
}

PaneLayout layoutPane(const PaneInput& input, const PaneMetrics& metrics)
{
    const int lowest = std::max(input.splitterTop, input.treeTop + kTreeMinimumHeight);
    const int splitterTop = std::min(lowest, kSplitterMaximumTop);

    PaneLayout layout;
    layout.splitter = {0, splitterTop, input.innerWidth, metrics.splitterHeight};
    layout.tree = {-1, input.treeTop, input.innerWidth + 2, splitterTop - input.treeTop};
    layout.buttons = {0, splitterTop + metrics.splitterStep, input.innerWidth, input.buttonsHeight};
    const int top = layout.buttons.top + layout.buttons.height;
    layout.thumbnails = {layout.tree.left, top, layout.tree.width,
                         input.innerHeight - top - metrics.bottomMargin};
    return layout;
}

} // namespace thumbs
