#pragma once

class QPoint;

namespace core {

// The menus and buttons of the main window, as they follow what happens elsewhere, and those of
// their entries that other windows choose.
class MainMenus {
public:
    virtual ~MainMenus() = default;

    // Chooses an entry of the thumbnails' sizes or colours, from 0: it is checked and stored, and
    // the pane follows. Indexes without an entry do nothing.
    virtual void ThumbNailSize(int menuIndex) = 0;
    virtual void ThumbNailColor(int menuIndex) = 0;
    // Reads favourites and editors into their menus again.
    virtual void refillListMenus() = 0;
    // Enables or disables the commands that go with a picture, as a block.
    virtual void setMenuState(bool enabled) = 0;
    // Opens the menu of folder tools at a place on the screen.
    virtual void popUpFolderTools(const QPoint& screenPosition) = 0;
    // The button of the slide show is pressed while the show runs.
    virtual void pressSlideButton(bool pressed) = 0;
    // The zoom tool was closed by its own box: its menu checks go, the stored state stays.
    virtual void zoomToolClosed() = 0;
};

} // namespace core
