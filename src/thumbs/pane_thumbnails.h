#pragma once

class ThumbNailList;

namespace thumbs {

// The browser pane as the one that has the thumbnails of the folder shown, for windows that act on
// the files selected there.
class PaneThumbnails {
public:
    virtual ~PaneThumbnails() = default;

    [[nodiscard]] virtual ThumbNailList& ThumbNailList1() = 0;
};

// The thumbnails of the browser pane; null while there is no pane.
[[nodiscard]] ThumbNailList* paneThumbnails();

} // namespace thumbs
