#include "core/picture_in_hand.h"

#include "core/file_field.h"
#include "core/picture_display.h"
#include "core/state.h"
#include "core/viewer.h"
#include "core/working_files.h"
#include "platform/pictures/picture_box.h"
#include "platform/pictures/picture_loader.h"

namespace core {

void takeInHand(const platform::Picture& picture, PictureDisplay& display, FileField& field)
{
    state().PictureChanged = true;
    display.Image1().setPicture(picture);
    if (!saveAs(WorkingFile::Picture, display.Image1().picture())) {
        return;
    }
    const QString path = workingFile(WorkingFile::Picture);
    field.setXiala(path);
    if (const auto loaded = platform::loadPicture(path)) {
        display.viewer().setPicture(*loaded);
    }
    display.rebuildSizeText();
}

} // namespace core
