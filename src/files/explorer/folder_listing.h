#pragma once

#include "files/explorer/list_rows.h"
#include "files/explorer/percent.h"

#include <QString>

namespace files {

struct FolderRequest {
    QString path;
    QString filter = QStringLiteral("*.*"); // one pattern, for the files
    bool showFolders = true;
};

// What the list shows of a folder: folders that aren't hidden, then the files that match, hidden
// ones included, each group by name without regard to case. Folders show when they were modified
// and made, files twice when they were made. Progress tells the percent for each group, from the
// first entry on, and ends at 100. Empty for a folder that can't be read to its end, because the
// user may not or the mount has died; what goes meanwhile is left out.
[[nodiscard]] ListRows listFolder(const FolderRequest& request, const ProgressHandler& progress);

} // namespace files
