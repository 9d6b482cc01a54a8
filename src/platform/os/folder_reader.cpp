#include "platform/os/folder_reader.h"

#include "platform/os/descriptor.h"

#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>

namespace platform {

FolderReader::FolderReader(const QString& folder)
{
    Descriptor descriptor = openDescriptor(folder, O_RDONLY | O_DIRECTORY);
    if (!descriptor.isOpen()) {
        return;
    }
    m_folder.reset(::fdopendir(descriptor.get()));
    if (m_folder) {
        // The stream owns the descriptor now.
        static_cast<void>(descriptor.release());
    }
}

bool FolderReader::next()
{
    do {
        m_entry = ::readdir(m_folder.get());
    } while (m_entry != nullptr &&
             (std::strcmp(m_entry->d_name, ".") == 0 || std::strcmp(m_entry->d_name, "..") == 0));
    return m_entry != nullptr;
}

// What the system remembers of the folder would outlive whoever serves it.
bool FolderReader::isStillServed() const
{
    struct statx facts = {};
    return ::statx(descriptor(), "", AT_EMPTY_PATH | AT_STATX_FORCE_SYNC, STATX_TYPE, &facts) == 0;
}

EntryKind FolderReader::kind() const
{
    if (m_entry->d_type == DT_REG) {
        return EntryKind::File;
    }
    if (m_entry->d_type == DT_DIR) {
        return EntryKind::Folder;
    }
    if (m_entry->d_type != DT_LNK && m_entry->d_type != DT_UNKNOWN) {
        return EntryKind::Other;
    }
    struct stat facts = {};
    if (::fstatat(descriptor(), m_entry->d_name, &facts, 0) != 0) {
        return EntryKind::Other;
    }
    if (S_ISREG(facts.st_mode)) {
        return EntryKind::File;
    }
    return S_ISDIR(facts.st_mode) ? EntryKind::Folder : EntryKind::Other;
}

bool FolderReader::isLink() const
{
    if (m_entry->d_type != DT_UNKNOWN) {
        return m_entry->d_type == DT_LNK;
    }
    struct stat facts = {};
    return ::fstatat(descriptor(), m_entry->d_name, &facts, AT_SYMLINK_NOFOLLOW) == 0 &&
           S_ISLNK(facts.st_mode);
}

} // namespace platform
