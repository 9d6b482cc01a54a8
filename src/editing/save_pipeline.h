#pragma once

#include <QString>

namespace core {
class PictureDisplay;
}

namespace editing {

// What of Image1 a save command takes: the picture, or all that is drawn on it.
enum class SaveSource { Picture, DrawnImage };

// Save and Save as: puts the viewer's picture into the save's working file and goes on by dialog.
// Goes no further where that file can only be had with an older picture.
void save(core::PictureDisplay& display, SaveSource source, const QString& shownPath);

// The save step for all formats: asks for a name and writes there what the working file holds, as
// the filter of the dialog says, whatever the name. The dialog starts at the path shown. Cancelling
// changes nothing; a failure to write is passed over.
void saveByDialog(core::PictureDisplay& display, const QString& shownPath);

} // namespace editing
