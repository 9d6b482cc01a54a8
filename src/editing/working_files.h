#pragma once

#include <QString>

namespace core {
class MainWindow;
}

namespace platform {
class Picture;
class PictureBox;
} // namespace platform

namespace editing {

// The files by which pictures travel between commands and windows, by fixed names in the program's
// data folder.
enum class WorkingFile {
    Picture,     // temp.bmp: the picture in hand, for the separate editor, printing and pasting
    BeforeEdit,  // Frametemp.bmp: the one step of undo
    Save,        // saveTemp.bmp: what a save command is about to write
    JpegPreview, // saveJpgTemp.jpg: the last conversion of the JPEG window
    Transform,   // Images/Temp.bmp: the result of a flip or a scale, gone when the command ends
};

[[nodiscard]] QString workingFile(WorkingFile file);

// Saves a picture as a working file. False when it couldn't be written: the file then is what it
// was before, another picture perhaps, and mustn't be taken for this one.
[[nodiscard]] bool saveAs(WorkingFile file, const platform::Picture& picture);

// Keeps the viewer's picture as the state that Undo goes back to; Image1 holds it afterwards. A
// file that can't be written leaves the state that was kept before.
void keepBeforeEdit(core::MainWindow& form);

// Hands the drawing on a box to the viewer by way of the transform's working file, which is gone
// afterwards. Without that file the viewer keeps what it shows.
void showThroughWorkingFile(core::MainWindow& form, const platform::PictureBox& box);

// Undo: brings the state before the last edit back. Without one, or when its file can't be read,
// the viewer keeps its picture.
void undo(core::MainWindow& form);

// Removes the working files that don't outlive the program: when it ends, and when it starts after
// it couldn't end.
void removeWorkingFiles();

} // namespace editing
