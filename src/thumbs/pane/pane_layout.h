#pragma once

#include "base/twips.h"

// Where the parts of the browser pane stand, as plain numbers in twips.
namespace thumbs {

inline constexpr int kPaneMinimumWidth = 2000;
inline constexpr int kPaneMaximumWidth = 9070;
inline constexpr int kPaneDefaultWidth = 5760; // three columns of the size delivered

inline constexpr int kTreeMinimumHeight = 100;
inline constexpr int kSplitterMaximumTop = 2500;
inline constexpr int kBothBandsHeight = 540; // of the tool bar holder

[[nodiscard]] int clampedPaneWidth(int width);

// The pane's height beside a main window of its own frame.
[[nodiscard]] int paneHeight(int coolBarHeight, int viewerHeight, int mainWindowHeight);

// The heights that the layout keeps. The plain ones are too thin to be seen or held with the
// pointer; the ones for the screen give the splitter five pixels of its own.
struct PaneMetrics {
    int splitterHeight = 8;
    int splitterStep = 5; // from the splitter's top to the button strip
    int bottomMargin = 65;
};
inline constexpr PaneMetrics kScreenMetrics{5 * base::kTwipsPerPixel, 5 * base::kTwipsPerPixel, 65};

struct PaneBox {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const PaneBox&, const PaneBox&) = default;
};

struct PaneInput {
    int innerWidth = 0;
    int innerHeight = 0;
    int treeTop = 0;
    int splitterTop = 0; // wanted
    int buttonsHeight = 0;
};

struct PaneLayout {
    PaneBox tree;
    PaneBox splitter;
    PaneBox buttons;
    PaneBox thumbnails;
};

[[nodiscard]] PaneLayout layoutPane(const PaneInput& input, const PaneMetrics& metrics = {});

} // namespace thumbs
