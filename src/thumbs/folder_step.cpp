#include "thumbs/folder_step.h"

#include "core/services.h"
#include "thumbs/run_surface.h"

namespace thumbs {

core::ProgressStrip* FolderStep::strip() const
{
    return core::services().progress;
}

bool FolderStep::isCancelled(const GalleryState& state) const
{
    return state.CancelLoading;
}

} // namespace thumbs
