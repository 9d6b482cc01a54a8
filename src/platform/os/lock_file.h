#pragma once

#include "platform/os/descriptor.h"

#include <QString>

namespace platform {

// A folder that nobody else may look into: in the runtime folder, or under /tmp where there is
// none. "" when neither can be used.
[[nodiscard]] std::string privateFolder();

// A file of the user's own to lock, kept in the private folder. Its name says what it is for, and
// the path (not required to exist) what it stands for. Closed when there is no such folder.
[[nodiscard]] Descriptor openLockFile(const char* purpose, const QString& path);

// Waits for the lock that openLockFile tells of. Held while the descriptor lives; a closed one
// means that there is none to be had.
[[nodiscard]] Descriptor lockFor(const char* purpose, const QString& path);

} // namespace platform
