#pragma once

#include "platform/descriptor.h"

#include <QString>

namespace platform {

// A file of the user's own to lock, kept out of sight: in the runtime folder, or in a private
// folder under /tmp where there is none. Its name says what it is for, and the path (not required
// to exist) what it stands for. Closed when neither folder can be used.
[[nodiscard]] Descriptor openLockFile(const char* purpose, const QString& path);

} // namespace platform
