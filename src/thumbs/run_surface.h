#pragma once

#include "platform/os/file_list.h"
#include "platform/pictures/picture.h"
#include "thumbs/loaded_picture.h"
#include "thumbs/page_sheet.h"
#include "thumbs/tile_grid.h"
#include "thumbs/tile_table.h"

class QScrollBar;
class ThumbNailList;

namespace widgets {
class ProgressStrip;
}

namespace thumbs {

class InfoBar;
class PageViewport;

// What a run leaves for the next step and for other runs. Runs may nest: a handler that runs while
// one yields can start another, and both work on these fields.
struct GalleryState {
    TileTable ThumbTable;
    TileGrid grid;         // CellWidth, CellHeight, and where the tiles stand
    int ThumbCellSize = 0; // the tile size of the public measures
    int PageColumns = 0;
    int ThumbsPerPage = 0;
    // The size of every page of the run; for contact sheets the one before zooming. Kept for the
    // next run.
    int PageWidthNow = 0;
    int PageHeightNow = 0;
    int PagesLoaded = 0; // counts up with every page made and isn't set back
    int runs = 0;        // begun so far; a run sees by it that another one has worked meanwhile
    bool IsLoading = false;
    bool CancelLoading = false; // the running loop stops at its next file
    bool IsPrintPreview = false;
    bool IsHtmlRun = false;
    bool isAlbumMade = false; // from its first step to its last, whatever runs nest in it
    bool IsPrinting = false;
    QString AlbumSideText; // of the album pages; they stay from one album to the next
    QString AlbumSubTitle;

    void endRun() { IsLoading = CancelLoading = IsPrinting = false; }
};

// What a list lends to the runs over its folder, those of albums and contact sheets too: the files,
// the pages and their state, the scratch boxes that one file at a time is loaded into, and the
// parts of the control that show all this. It lives as long as the list.
struct RunSurface {
    explicit RunSurface(ThumbNailList& owner);
    RunSurface(const RunSurface&) = delete;
    RunSurface& operator=(const RunSurface&) = delete;

    // Gives the first page its place for the present viewport and colours; further pages are gone.
    void layoutFirstPage();
    // The same for a white sheet of a size of its own; left is its place in the frame of the pages.
    void layoutFirstSheet(QSize sheet, int left);
    // Appends a page below the last one.
    void addPage();
    // Scroll bar and sheet as the stack of pages wants them.
    void followPages();
    // Sheet and scroll bar back to the top, where there is something to scroll.
    void showTop();
    // Brings what was painted in a box to the screen.
    void showTile(int page, const TileBox& box);
    // The colour around the pages, as the list's property has it.
    void takeFrameColour();

    [[nodiscard]] QSize viewportSize() const;
    [[nodiscard]] QString infoText() const;
    void setInfoText(const QString& text);
    // The caption of what the list stands on.
    void setHostCaption(const QString& caption);

    ThumbNailList& list;
    GalleryState state;
    PageSheet pages;
    platform::FileList File1;
    LoadedPicture P_load;
    platform::Picture fNX; // the badge

    // Children of the list.
    PageViewport& viewport;
    InfoBar& LbInfo;
    widgets::ProgressStrip& Gradient;
    QScrollBar& V_Scroll;

private:
    void showFirstPage();
};

} // namespace thumbs
