#include "editing/clipboard_commands.h"

#include "core/interfaces.h"
#include "core/picture_required.h"
#include "core/state.h"
#include "core/working_files.h"
#include "platform/desktop/clipboard.h"
#include "platform/pictures/picture_box.h"
#include "platform/pictures/picture_loader.h"

namespace editing {

namespace {

bool putOnClipboard(core::MainWindow& form)
{
    return platform::setClipboardPicture(form.viewer().Picture());
}

} // namespace

void copyPicture(core::MainWindow& form)
{
    if (core::requirePicture(form.viewer())) {
        static_cast<void>(putOnClipboard(form));
    }
}

void cutPicture(core::MainWindow& form)
{
    if (core::requirePicture(form.viewer()) && putOnClipboard(form)) {
        form.viewer().Clear();
    }
}

void pastePicture(core::MainWindow& form)
{
    const auto pasted = platform::clipboardPicture();
    if (!pasted) {
        return;
    }
    core::state().PictureChanged = true;
    form.Image1().setPicture(*pasted);
    if (!core::saveAs(core::WorkingFile::Picture, form.Image1().picture())) {
        return;
    }
    const QString path = core::workingFile(core::WorkingFile::Picture);
    form.setXiala(path);
    if (const auto picture = platform::loadPicture(path)) {
        form.viewer().setPicture(*picture);
    }
    form.rebuildSizeText();
}

} // namespace editing
