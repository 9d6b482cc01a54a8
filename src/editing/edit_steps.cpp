#include "editing/edit_steps.h"

#include "core/picture_display.h"
#include "core/picture_required.h"
#include "core/viewer.h"
#include "core/working_files.h"
#include "platform/os/files.h"
#include "platform/pictures/picture_box.h"
#include "platform/pictures/picture_loader.h"

namespace editing {

void keepBeforeEdit(core::PictureDisplay& display)
{
    display.Image1().setPicture(display.viewer().Picture());
    // An edit goes on without its undo.
    static_cast<void>(core::saveAs(core::WorkingFile::BeforeEdit, display.Image1().picture()));
}

void showThroughWorkingFile(core::PictureDisplay& display, const platform::PictureBox& box)
{
    constexpr auto kFile = core::WorkingFile::Transform;
    if (const auto picture =
            core::takenThrough(kFile, box.drawnImage(), platform::OnFailure::Stop)) {
        display.viewer().setPicture(*picture);
    }
    platform::removeFile(core::workingFile(kFile));
}

void undo(core::PictureDisplay& display)
{
    if (!core::requirePicture(display.viewer())) {
        return;
    }
    if (const auto picture =
            platform::loadPicture(core::workingFile(core::WorkingFile::BeforeEdit))) {
        display.viewer().setPicture(*picture);
    }
    display.orgPicture().setPicture(display.viewer().Picture());
    display.rebuildSizeText();
}

} // namespace editing
