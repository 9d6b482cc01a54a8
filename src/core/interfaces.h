#pragma once

#include "core/constants.h"
#include "platform/pictures/picture.h"
#include "platform/pictures/picture_box.h"

#include <QString>

class QPoint;
class QWidget;

namespace platform {
class FileList;
}

// The small classes through which lower windows reach higher ones. The shell fills core::services()
// at start; every pointer may be null in tests and before start-up has come that far.
namespace core {

// The viewer, as commands and windows below or beside it use it.
class Viewer {
public:
    virtual ~Viewer() = default;

    [[nodiscard]] virtual platform::Picture Picture() const = 0;
    virtual void setPicture(const platform::Picture& picture) = 0;
    [[nodiscard]] virtual bool PictureExists() const = 0;
    [[nodiscard]] virtual int PictureWidth() const = 0; // pixels, 0 without a picture
    [[nodiscard]] virtual int PictureHeight() const = 0;
    virtual void Clear() = 0;
    virtual void Refresh() = 0;
    virtual void PanViewRefresh() = 0;
    virtual void PanViewHide() = 0;
    [[nodiscard]] virtual int ZoomFactor() const = 0;
    virtual void setZoomFactor(int factor) = 0;
    virtual void ZoomIn() = 0;
    virtual void ZoomOut() = 0;
    virtual void ZoomReal() = 0;
    virtual void giveFocus() = 0;
};

// The status bar's panels, by number from 1.
class StatusBar {
public:
    virtual ~StatusBar() = default;
    virtual void setPanel(Panel panel, const QString& text) = 0;
    [[nodiscard]] virtual QString panel(Panel panel) const = 0;
};

// The strip that shows how far a long run has come.
class ProgressStrip {
public:
    virtual ~ProgressStrip() = default;
    virtual void showStrip(bool visible) = 0;
    virtual void setBackground(base::Colour colour) = 0;
    // Clears the strip and fills it from the left to the fraction (0 to 1) of its width.
    virtual void fill(double fraction, base::Colour colour) = 0;
};

// The operations of Form1 that other windows call, and its controls that they reach.
class MainWindow {
public:
    virtual ~MainWindow() = default;

    virtual void form1paint() = 0;
    virtual void ThumbNailSize(int menuIndex) = 0;
    virtual void ThumbNailColor(int menuIndex) = 0;
    virtual void Propers(const QString& path) = 0;
    // Checks the entry of the pan view and runs Smallfrm, so that the pan view ends up closed
    // whether it was open or not, and its key written.
    virtual void closePanView() = 0;
    // The zoom tool was closed by its own box: its menu checks go, the stored state stays.
    virtual void zoomToolClosed() = 0;
    virtual void openPsd(const QString& path) = 0;
    virtual void SaveGIF() = 0;

    // Sends a path to its place by its extension: viewer, player or web window.
    virtual void routePath(const QString& path) = 0;
    // Panels 1, 8, 6 and 7 for a file just shown.
    virtual void showFileFacts(const QString& path) = 0;
    // Panels 1 and 8 alone.
    virtual void showNameAndSize(const QString& path) = 0;
    // Adds a path to the recent list and refills the drop-down of the file name field.
    virtual void addRecentPath(const QString& path) = 0;
    // Reads favourites and editors into their menus again.
    virtual void refillListMenus() = 0;
    // Enables or disables the commands that go with a picture, as a block.
    virtual void setMenuState(bool enabled) = 0;
    // Opens the menu of folder tools at a place on the screen.
    virtual void popUpFolderTools(const QPoint& screenPosition) = 0;
    // The folder list Dir2 follows the pane.
    virtual void setDir2(const QString& folder) = 0;
    // The text with the size of the picture shown is made anew from the viewer.
    virtual void rebuildSizeText() = 0;

    // The text of the file name field, Xiala. Setting it doesn't open anything.
    [[nodiscard]] virtual QString Xiala() const = 0;
    virtual void setXiala(const QString& text) = 0;

    // The hidden work surfaces: the last picture at its own size, and the untouched copy.
    virtual platform::PictureBox& Image1() = 0;
    virtual platform::PictureBox& orgPicture() = 0;

    virtual Viewer& viewer() = 0;
    virtual StatusBar& StateBar() = 0;
    virtual ProgressStrip& Gradient() = 0;

    // Parent for windows that lie over the main window.
    virtual QWidget* window() = 0;
    // Height in twips, for the pane's layout.
    [[nodiscard]] virtual int viewerHeightTwips() const = 0;
};

// The browser pane, as the main window and the thumbnails use it.
class BrowserPane {
public:
    virtual ~BrowserPane() = default;
    virtual void PathChange() = 0;
    virtual void ThumResize() = 0;
    // The list that the pictures are stepped through.
    virtual platform::FileList& File1() = 0;
    virtual void setSplitterEnabled(bool enabled) = 0;
    // Runs the thumbnails again for the folder, size and colours that hold now.
    virtual void rebuildThumbnails() = 0;
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
