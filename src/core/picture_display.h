#pragma once

namespace platform {
class PictureBox;
}

namespace core {

class StatusBar;
class Viewer;

// What displays a picture: the viewer, the surfaces that commands work on behind it, and the places
// that tell of what it shows.
class PictureDisplay {
public:
    virtual ~PictureDisplay() = default;

    virtual Viewer& viewer() = 0;
    virtual StatusBar& StateBar() = 0;
    // The hidden work surfaces: the last picture at its own size, and the untouched copy.
    virtual platform::PictureBox& Image1() = 0;
    virtual platform::PictureBox& orgPicture() = 0;
    // Makes the text with the size of the picture shown anew from the viewer.
    virtual void rebuildSizeText() = 0;
    // Leaves the pan view closed whether it was open or not; its menu entry and its key follow.
    virtual void closePanView() = 0;
};

} // namespace core
