#include "platform/subfolders.h"

#include "platform/folder_reader.h"
#include "platform/name_order.h"
#include "platform/paths.h"

#include <algorithm>

namespace platform {

namespace {

// Bounds of the search for one subfolder: a listing of this length takes about a millisecond, and
// each link costs a look at the disk.
constexpr int kMostEntries = 4000;
constexpr int kMostLinks = 32;

struct Subfolder {
    QString folded;
    QString name;
};

bool precedes(const Subfolder& left, const Subfolder& right)
{
    const int order = compareByCodePoint(left.folded, right.folded);
    return order != 0 ? order < 0 : compareByCodePoint(left.name, right.name) < 0;
}

} // namespace

std::vector<QString> visibleSubfolders(const QString& folder)
{
    FolderReader entries(folder);
    std::vector<Subfolder> found;
    while (entries.isOpen() && entries.next()) {
        if (!entries.isHidden() && entries.kind() == EntryKind::Folder) {
            const QString name = fromNative(entries.name());
            found.push_back({name.toCaseFolded(), name});
        }
    }
    std::sort(found.begin(), found.end(), precedes);
    std::vector<QString> names;
    names.reserve(found.size());
    for (Subfolder& subfolder : found) {
        names.push_back(std::move(subfolder.name));
    }
    return names;
}

bool hasVisibleSubfolder(const QString& folder)
{
    FolderReader entries(folder);
    int seen = 0;
    int links = 0;
    while (entries.isOpen() && entries.next()) {
        if (++seen > kMostEntries || links > kMostLinks) {
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
