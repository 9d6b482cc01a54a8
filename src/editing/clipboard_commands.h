#pragma once

namespace core {
class MainWindow;
}

namespace editing {

// Puts the viewer's picture on the clipboard.
void copyPicture(core::MainWindow& form);

// The same, then clears the viewer.
void cutPicture(core::MainWindow& form);

// Shows the bitmap on the clipboard, by way of a working file whose path the file name field gets.
// Does nothing when the clipboard holds no bitmap, and shows nothing without that file.
void pastePicture(core::MainWindow& form);

} // namespace editing
