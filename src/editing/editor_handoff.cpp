#include "editing/editor_handoff.h"

#include "core/picture_display.h"
#include "core/picture_required.h"
#include "core/settings.h"
#include "core/viewer.h"
#include "core/working_files.h"
#include "editing/edit_steps.h"
#include "files/text_list.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/pointer.h"
#include "platform/os/paths.h"
#include "platform/pictures/picture_box.h"

namespace editing {

namespace {

const QString kEditorProgram = QStringLiteral("Tesselia.exe");

// No program starts where this fails: it would find another picture.
bool savePictureInHand(core::PictureDisplay& display)
{
    display.Image1().setPicture(display.viewer().Picture());
    return core::saveAs(core::WorkingFile::Picture, display.Image1().picture());
}

} // namespace

void runFilter(core::PictureDisplay& display, FilterMenu menu, int index)
{
    const std::optional<int> number = filterNumber(menu, index);
    if (!number) {
        return;
    }
    const platform::PointerGuard hourglass;
    keepBeforeEdit(display);
    display.closePanView();
    core::store(core::kFilter, *number);
    startSeparateEditor(display);
}

void startSeparateEditor(core::PictureDisplay& display)
{
    if (!core::requirePicture(display.viewer())) {
        return;
    }
    const platform::PointerGuard hourglass;
    if (savePictureInHand(display)) {
        // A missing program is passed over in silence.
        platform::desktop().startProgram(platform::appFile(kEditorProgram), {});
    }
}

void startListedEditor(core::PictureDisplay& display, int place)
{
    if (!core::requirePicture(display.viewer())) {
        return;
    }
    const platform::PointerGuard hourglass;
    if (!savePictureInHand(display)) {
        return;
    }
    const std::vector<files::NamedPath> editors = files::readNamed(files::kEditors);
    const auto entry = static_cast<std::size_t>(place - 1);
    if (place < 1 || entry >= editors.size() || editors[entry].path.isEmpty()) {
        return;
    }
    platform::desktop().startProgram(editors[entry].path,
                                     {core::workingFile(core::WorkingFile::Picture)});
}

} // namespace editing
