#pragma once

#include "platform/os/files.h"
#include "platform/pictures/picture.h"

#include <QString>

namespace platform {

// Saves a picture as a BMP file: 24 bits a pixel, bottom row first, over white where it is
// transparent. Complete on disk or not there at all; false when it couldn't be written or the
// picture is Nothing.
[[nodiscard]] bool savePicture(const Picture& picture, const QString& path,
                               Flush flush = Flush::No);

} // namespace platform
