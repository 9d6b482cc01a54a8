#pragma once

#include "platform/picture.h"

#include <QString>

// Writes a picture as a GIF file of at most 256 colours over the target. True when the whole file
// was written. False for anything but a bitmap, a picture longer than GIF can tell or a target that
// can't be opened, all of which change nothing, and for a full disk.
[[nodiscard]] bool SaveGIF(const platform::Picture& picture, const QString& fileName);
