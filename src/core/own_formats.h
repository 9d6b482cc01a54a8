#pragma once

#include "platform/pictures/on_failure.h"
#include "platform/pictures/picture.h"

#include <QString>
#include <optional>

namespace platform {
class PictureBox;
}

namespace core {

// Loads a file in one of the own formats the way that they all go: decoded into the one record,
// drawn on a box, and through WorkingFile::Picture. A reader may show a message meanwhile. After a
// step that fails GoOn draws the record as it is, and loads the working file as it stands. Nothing,
// and no file written, when nothing was drawn; nothing also without a working file to load.
[[nodiscard]] std::optional<platform::Picture>
loadOwnFormat(const QString& path, platform::PictureBox& box, platform::OnFailure onFailure);

} // namespace core
