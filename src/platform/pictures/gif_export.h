#pragma once

#include "platform/pictures/picture.h"

#include <QString>

namespace platform {

// Writes a picture as a GIF file of at most 256 colours over the target. True when the whole file
// was written. Otherwise the target is what it was before: for anything but a bitmap, a picture
// longer than GIF can tell, and a target that can't be written.
[[nodiscard]] bool writeGif(const Picture& picture, const QString& fileName);

} // namespace platform
