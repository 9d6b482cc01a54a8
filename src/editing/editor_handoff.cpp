#include "editing/editor_handoff.h"

#include "core/interfaces.h"
#include "core/picture_required.h"
#include "core/settings.h"
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
bool savePictureInHand(core::MainWindow& form)
{
    form.Image1().setPicture(form.viewer().Picture());
    return core::saveAs(core::WorkingFile::Picture, form.Image1().picture());
}

} // namespace

void runFilter(core::MainWindow& form, FilterMenu menu, int index)
{
    const std::optional<int> number = filterNumber(menu, index);
    if (!number) {
        return;
    }
    const platform::PointerGuard hourglass;
    keepBeforeEdit(form);
    form.closePanView();
    core::store(core::kFilter, *number);
    startSeparateEditor(form);
}

void startSeparateEditor(core::MainWindow& form)
{
    if (!core::requirePicture(form.viewer())) {
        return;
    }
    const platform::PointerGuard hourglass;
    if (savePictureInHand(form)) {
        // A missing program is passed over in silence.
        platform::desktop().startProgram(platform::appFile(kEditorProgram), {});
    }
}

void startListedEditor(core::MainWindow& form, int place)
{
    if (!core::requirePicture(form.viewer())) {
        return;
    }
    const platform::PointerGuard hourglass;
    if (!savePictureInHand(form)) {
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
