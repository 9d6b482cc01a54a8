#pragma once

#include <QString>
#include <vector>

namespace platform {

// The folders in a folder that aren't hidden, links to folders included, ordered by name without
// regard to case. Empty for a folder that can't be read.
std::vector<QString> visibleSubfolders(const QString& folder);

// How long hasVisibleSubfolder() looks: where finding one out would take long, a brief look says
// yes; a thorough one goes on to the end.
enum class Look { Brief, Thorough };

// Whether there is at least one of them. Looks no further than the first.
bool hasVisibleSubfolder(const QString& folder, Look look = Look::Brief);

} // namespace platform
