#pragma once

#include "formats/format.h"

#include <QString>
#include <cstdint>

namespace core {

// The process-wide values that windows share. Plain data: each is written and read where it is
// used.
struct State {
    QString CurrentFolder;      // shown by the browser pane
    QString CurrentFile;        // last shown or composed for showing
    bool FirstActivate = false; // the picture count is to be taken when Form1 next becomes active
    bool BrowserShown = false;
    bool PictureWide = false; // the viewer fills the work area
    std::int16_t SlideIndex = 0;
    bool MoveNotCopy = false;
    bool WallTile = false;
    bool WallCenter = false;
    bool WallStretch = false;
    std::int32_t ResizeSourceWidth = 0; // pixels, handed to Form4
    std::int32_t ResizeSourceHeight = 0;
    bool PictureChanged = false;
    bool FlashPActive = false;    // the wheel belongs to the Flash window
    bool FrameWindowOpen = false; // the frame composer is open
    bool BrowserOpen = false;     // the web window is open
    bool ResizeCancelled = false; // Form4 was left without a new size
    QString CommandLineFile;      // named last on the command line; nobody acts upon it

    // The one record that all readers fill; it is not cleared between files.
    RawImage rawImage;
};

State& state();

} // namespace core
