#include "thumbs/folder_step.h"

#include "core/interfaces.h"
#include "core/services.h"
#include "thumbs/run_surface.h"

namespace thumbs {

core::ProgressStrip* FolderStep::strip() const
{
    core::MainWindow* window = core::services().mainWindow;
    return window == nullptr ? nullptr : &window->Gradient();
}

bool FolderStep::isCancelled(const GalleryState& state) const
{
    return state.CancelLoading;
}

} // namespace thumbs
