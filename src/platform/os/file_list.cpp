#include "platform/os/file_list.h"

#include "platform/os/folder_reader.h"
#include "platform/os/name_order.h"
#include "platform/os/paths.h"
#include "platform/os/wildcards.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace platform {

namespace {

// Calls take(entry) for each file that matches; false for a folder that can't be read.
template<typename Take> bool forEachFile(const QString& folder, const QString& pattern, Take take)
{
    FolderReader entries(folder);
    if (!entries.isOpen()) {
        return false;
    }
    const Wildcards wildcards(pattern);
    while (entries.next()) {
        if (entries.isHidden()) {
            continue;
        }
        FoldedName entry(fromNative(entries.name()));
        // The kind may cost a look at the disk, so the name comes first.
        if (wildcards.matchesFolded(entry.folded) && entries.kind() == EntryKind::File) {
            take(std::move(entry));
        }
    }
    return true;
}

std::optional<std::vector<QString>> sortedNames(const QString& folder, const QString& pattern)
{
    std::vector<FoldedName> files;
    const auto keep = [&](FoldedName file) { files.push_back(std::move(file)); };
    if (!forEachFile(folder, pattern, keep)) {
        return std::nullopt;
    }
    return inOrder(std::move(files));
}

} // namespace

void FileList::setPattern(const QString& pattern)
{
    m_pattern = pattern;
    refresh();
}

bool FileList::setPath(const QString& folder)
{
    const QString path = withoutSeparator(folder);
    if (path == m_path && !path.isEmpty()) {
        return true;
    }
    auto names = sortedNames(path, m_pattern);
    if (!names) {
        return false;
    }
    take(path, std::move(*names));
    return true;
}

bool FileList::setPathFrom(const FileList& other)
{
    if (other.m_pattern != m_pattern) {
        return setPath(other.m_path);
    }
    take(other.m_path, other.m_names);
    return true;
}

void FileList::refresh()
{
    m_index = -1;
    m_names = sortedNames(m_path, m_pattern).value_or(std::vector<QString>());
}

void FileList::take(const QString& path, std::vector<QString> names)
{
    const bool changed = path != m_path;
    m_path = path;
    m_names = std::move(names);
    m_index = -1;
    // A copy, because the handler may set another one.
    if (const auto handler = m_pathChanged; handler && changed) {
        handler();
    }
}

QString FileList::name(int index) const
{
    return index >= 0 && index < count() ? m_names[static_cast<std::size_t>(index)] : QString();
}

bool FileList::setListIndex(int index)
{
    if (index < 0 || index >= count()) {
        return false;
    }
    m_index = index;
    return true;
}

void FileList::select(const QString& name)
{
    const auto found = std::find(m_names.begin(), m_names.end(), name);
    if (found != m_names.end()) {
        m_index = static_cast<int>(found - m_names.begin());
    }
}

int countFiles(const QString& folder, const QString& pattern)
{
    int count = 0;
    forEachFile(folder, pattern, [&](const FoldedName&) { ++count; });
    return count;
}

} // namespace platform
