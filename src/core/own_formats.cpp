#include "core/own_formats.h"

#include "core/state.h"
#include "core/working_files.h"
#include "platform/pictures/raw_image_drawing.h"

namespace core {

std::optional<platform::Picture> loadOwnFormat(const QString& path, platform::PictureBox& box,
                                               platform::OnFailure onFailure)
{
    if (!platform::decodeToBox(path, box, state().rawImage, onFailure)) {
        return std::nullopt;
    }
    return takenThrough(WorkingFile::Picture, box.drawnImage(), onFailure);
}

} // namespace core
