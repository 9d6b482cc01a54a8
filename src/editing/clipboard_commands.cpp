#include "editing/clipboard_commands.h"

#include "core/file_field.h"
#include "core/picture_display.h"
#include "core/picture_required.h"
#include "core/state.h"
#include "core/viewer.h"
#include "core/working_files.h"
#include "platform/desktop/clipboard.h"
#include "platform/pictures/picture_box.h"
#include "platform/pictures/picture_loader.h"

namespace editing {

namespace {

bool putOnClipboard(core::PictureDisplay& display)
{
    return platform::setClipboardPicture(display.viewer().Picture());
}

} // namespace

void copyPicture(core::PictureDisplay& display)
{
    if (core::requirePicture(display.viewer())) {
        static_cast<void>(putOnClipboard(display));
    }
}

void cutPicture(core::PictureDisplay& display)
{
    if (core::requirePicture(display.viewer()) && putOnClipboard(display)) {
        display.viewer().Clear();
    }
}

void pastePicture(core::PictureDisplay& display, core::FileField& field)
{
    const auto pasted = platform::clipboardPicture();
    if (!pasted) {
        return;
    }
    core::state().PictureChanged = true;
    display.Image1().setPicture(*pasted);
    if (!core::saveAs(core::WorkingFile::Picture, display.Image1().picture())) {
        return;
    }
    const QString path = core::workingFile(core::WorkingFile::Picture);
    field.setXiala(path);
    if (const auto picture = platform::loadPicture(path)) {
        display.viewer().setPicture(*picture);
    }
    display.rebuildSizeText();
}

} // namespace editing
