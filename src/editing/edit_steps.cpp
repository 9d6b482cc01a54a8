#include "editing/edit_steps.h"

#include "core/interfaces.h"
#include "core/picture_required.h"
#include "core/working_files.h"
#include "platform/os/files.h"
#include "platform/pictures/picture_box.h"
#include "platform/pictures/picture_loader.h"

namespace editing {

void keepBeforeEdit(core::MainWindow& form)
{
    form.Image1().setPicture(form.viewer().Picture());
    // An edit goes on without its undo.
    static_cast<void>(core::saveAs(core::WorkingFile::BeforeEdit, form.Image1().picture()));
}

void showThroughWorkingFile(core::MainWindow& form, const platform::PictureBox& box)
{
    constexpr auto kFile = core::WorkingFile::Transform;
    if (const auto picture =
            core::takenThrough(kFile, box.drawnImage(), platform::OnFailure::Stop)) {
        form.viewer().setPicture(*picture);
    }
    platform::removeFile(core::workingFile(kFile));
}

void undo(core::MainWindow& form)
{
    if (!core::requirePicture(form.viewer())) {
        return;
    }
    if (const auto picture =
            platform::loadPicture(core::workingFile(core::WorkingFile::BeforeEdit))) {
        form.viewer().setPicture(*picture);
    }
    form.orgPicture().setPicture(form.viewer().Picture());
    form.rebuildSizeText();
}

} // namespace editing
