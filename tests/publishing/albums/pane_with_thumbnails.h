#pragma once

#include "support/fake_browser_pane.h"
#include "thumbs/pane_thumbnails.h"
#include "thumbs/thumbnail_list.h"

// A pane that has thumbnails, and is in place while it lives.
class PaneWithThumbnails : public support::FakeBrowserPane, public thumbs::PaneThumbnails {
public:
    using FakeBrowserPane::FakeBrowserPane;

    ThumbNailList& ThumbNailList1() override { return thumbnails; }
    void rebuildThumbnails() override { thumbnails.Makegallery(); }

    ThumbNailList thumbnails{this};
};
