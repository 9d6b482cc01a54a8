#pragma once

#include <QString>
#include <dirent.h>
#include <memory>

namespace platform {

enum class EntryKind { File, Folder, Other };

// Walks the entries of a folder in the order in which the file system gives them, "." and ".." left
// out. Asks for the facts of an entry only where its kind isn't known from the listing itself.
class FolderReader {
public:
    explicit FolderReader(const QString& folder);

    [[nodiscard]] bool isOpen() const { return m_folder != nullptr; }

    // Goes on to the next entry; false after the last one.
    bool next();

    // Whether the folder still answers. It doesn't once the program or the machine that serves it
    // has gone, and what was read until then is only a part.
    [[nodiscard]] bool isStillServed() const;

    [[nodiscard]] const char* name() const { return m_entry->d_name; }
    [[nodiscard]] bool isHidden() const { return m_entry->d_name[0] == '.'; }

    // What the entry is, or what it leads to if it is a link. A dangling link is Other.
    [[nodiscard]] EntryKind kind() const;
    [[nodiscard]] bool isLink() const;

    [[nodiscard]] int descriptor() const { return ::dirfd(m_folder.get()); }

private:
    struct Closer {
        void operator()(DIR* folder) const { ::closedir(folder); }
    };
    std::unique_ptr<DIR, Closer> m_folder;
    const dirent* m_entry = nullptr;
};

} // namespace platform
