#pragma once

#include <QString>
#include <vector>

namespace platform {

// The folders in a folder that aren't hidden, links to folders included, ordered by name without
// regard to case. Empty for a folder that can't be read.
std::vector<QString> visibleSubfolders(const QString& folder);

// Whether there is at least one of them. Looks no further than the first; where finding one out
// would take long it says yes.
bool hasVisibleSubfolder(const QString& folder);

} // namespace platform
