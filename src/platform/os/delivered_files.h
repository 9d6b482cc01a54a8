#pragma once

#include <QString>

namespace platform {

// Whether a folder holds the files that come with the program.
bool holdsDeliveredFiles(const QString& folder);

// Copies the delivered files that the target lacks; nothing that exists is overwritten. Does
// nothing once it has run to its end for a target, so that what a user deletes there stays deleted.
void seedDeliveredFiles(const QString& source, const QString& target);

} // namespace platform
