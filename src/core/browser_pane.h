#pragma once

#include <QString>

namespace platform {
class FileList;
}

namespace core {

// The browser pane, as the main window, the slide show and other windows use it.
class BrowserPane {
public:
    virtual ~BrowserPane() = default;

    // Goes to a folder as if it were chosen in the tree: the tree's highlight, the tiles and
    // CurrentFolder are this folder's afterwards.
    virtual void applyPath(const QString& folder) = 0;
    // Takes the height that the work area gives and lays the parts out.
    virtual void ThumResize() = 0;
    // The list that the pictures are stepped through.
    virtual platform::FileList& File1() = 0;
    virtual void setSplitterEnabled(bool enabled) = 0;
    // Runs the thumbnails again for the folder, size and colours that hold now.
    virtual void rebuildThumbnails() = 0;
    // Ends the run under way, if there is one, at its next file.
    virtual void stopThumbnails() = 0;
    // Size in pixels and colour preset (from 1) of the thumbnails; neither starts a run.
    virtual void setThumbnailSize(int pixels) = 0;
    virtual void setColourPreset(int preset) = 0;
    // Full pages of the present folder and tiles on a page, for the size that holds now.
    virtual int thumbnailPagesNeeded() = 0;
    virtual int thumbnailsPerPage() = 0;
    // The first folder after start has its thumbnails.
    [[nodiscard]] virtual bool isFirstFolderShown() const = 0;
    [[nodiscard]] virtual int widthTwips() const = 0;
};

} // namespace core
