#include "platform/os/subfolders.h"

#include "platform/os/folder_reader.h"
#include "platform/os/name_order.h"
#include "platform/os/paths.h"

#include <utility>

namespace platform {

namespace {

// Bounds of a brief search for one subfolder: a listing of this length takes about a millisecond,
// and each link costs a look at the disk.
constexpr int kMostEntries = 4000;
constexpr int kMostLinks = 32;

} // namespace

std::vector<QString> visibleSubfolders(const QString& folder)
{
    FolderReader entries(folder);
    std::vector<FoldedName> found;
    while (entries.isOpen() && entries.next()) {
        if (!entries.isHidden() && entries.kind() == EntryKind::Folder) {
            found.emplace_back(fromNative(entries.name()));
        }
    }
    const bool isWhole = entries.isOpen() && entries.isStillServed();
    return isWhole ? inOrder(std::move(found)) : std::vector<QString>();
}

bool hasVisibleSubfolder(const QString& folder, Look look)
{
    FolderReader entries(folder);
    int seen = 0;
    int links = 0;
    while (entries.isOpen() && entries.next()) {
        if (look == Look::Brief && (++seen > kMostEntries || links > kMostLinks)) {
            return true;
        }
        if (entries.isHidden()) {
            continue;
        }
        links += entries.isLink() ? 1 : 0;
        if (entries.kind() == EntryKind::Folder) {
            return true;
        }
    }
    return false;
}

} // namespace platform
