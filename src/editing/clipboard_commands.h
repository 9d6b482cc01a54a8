#pragma once

namespace core {
class FileField;
class PictureDisplay;
} // namespace core

namespace editing {

// Puts the viewer's picture on the clipboard.
void copyPicture(core::PictureDisplay& display);

// The same, then clears the viewer.
void cutPicture(core::PictureDisplay& display);

// Shows the bitmap on the clipboard, by way of a working file whose path the file name field gets.
// Does nothing when the clipboard holds no bitmap, and shows nothing without that file.
void pastePicture(core::PictureDisplay& display, core::FileField& field);

} // namespace editing
