#pragma once

#include "platform/picture.h"

#include <QString>
#include <optional>

namespace platform {

void clearClipboard();
void setClipboardPicture(const Picture& picture); // over white; Nothing only clears
void setClipboardText(const QString& text);

// The bitmap on the clipboard; nothing when it holds none or one beyond 512 MB.
[[nodiscard]] std::optional<Picture> clipboardPicture();

} // namespace platform
