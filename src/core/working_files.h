#pragma once

#include <QString>

namespace platform {
class Picture;
}

namespace core {

// The files by which pictures travel between commands and windows, by fixed names in the program's
// data folder.
enum class WorkingFile {
    BeforeEdit,  // the one step of undo
    Picture,     // the picture in hand, for the separate editor, printing and pasting
    Unwritten,   // written by nobody here, but taken along where it lies
    Transform,   // the result of a flip or a scale, gone when the command ends
    Save,        // what a save command is about to write
    JpegPreview, // the last conversion of the JPEG window
    AlbumPage,   // what an album is about to compress, gone when the album is there
    Wallpaper,   // the picture on its way to the desktop, gone when the command ends
};

[[nodiscard]] QString workingFile(WorkingFile file);

// Saves a picture as a working file. False when it couldn't be written: the file then is what it
// was before, another picture perhaps, and mustn't be taken for this one.
[[nodiscard]] bool saveAs(WorkingFile file, const platform::Picture& picture);

// Removes the working files that don't outlive the program: when it ends, and when it starts after
// it couldn't end.
void removeWorkingFiles();

} // namespace core
