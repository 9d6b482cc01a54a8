#pragma once

namespace core {
class PictureDisplay;
}

namespace platform {
class PictureBox;
}

// What comes before an edit, what comes after it, and the way back.
namespace editing {

// Keeps the viewer's picture as the state that Undo goes back to; Image1 holds it afterwards. A
// file that can't be written leaves the state that was kept before.
void keepBeforeEdit(core::PictureDisplay& display);

// Hands the drawing on a box to the viewer by way of the transform's working file, which is gone
// afterwards. Without that file the viewer keeps what it shows.
void showThroughWorkingFile(core::PictureDisplay& display, const platform::PictureBox& box);

// Undo: brings the state before the last edit back. Without one, or when its file can't be read,
// the viewer keeps its picture.
void undo(core::PictureDisplay& display);

} // namespace editing
