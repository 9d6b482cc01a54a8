#pragma once

#include "platform/pictures/picture.h"

#include <QString>
#include <optional>

namespace platform {

void clearClipboard();
// The picture over white; Nothing only clears. False where there is no memory for it: the clipboard
// then holds what it held.
bool setClipboardPicture(const Picture& picture);
void setClipboardText(const QString& text);
[[nodiscard]] QString clipboardText(); // empty when it holds none

// The bitmap on the clipboard; nothing when it holds none or one beyond 512 MB.
[[nodiscard]] std::optional<Picture> clipboardPicture();

} // namespace platform
