#pragma once

#include "platform/pictures/on_failure.h"
#include "platform/pictures/picture.h"

#include <QString>
#include <optional>

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

// Takes a picture through a working file: what is loaded from there once it is saved. Where it
// can't be written GoOn loads the file as it stands. Nothing without a file that can be read.
[[nodiscard]] std::optional<platform::Picture>
takenThrough(WorkingFile file, const platform::Picture& picture, platform::OnFailure onFailure);

// The same picture without reading it again, since it is known what a file just written holds.
// Nothing where it can't be written.
[[nodiscard]] std::optional<platform::Picture> writtenAs(WorkingFile file,
                                                         const platform::Picture& picture);

// Removes the working files that don't outlive the program: when it ends, and when it starts after
// it couldn't end.
void removeWorkingFiles();

} // namespace core
