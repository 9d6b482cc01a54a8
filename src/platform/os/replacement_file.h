#pragma once

#include "platform/os/descriptor.h"
#include "platform/os/files.h"

#include <QString>
#include <functional>
#include <string>
#include <sys/types.h>

namespace platform {

// Whether the file of a name is saved anew or another one comes in its place. A saved one keeps its
// rights, and is written in place where its folder can't be written. Another one brings its own.
enum class Replacing { TheBytes, TheFile };

// What stands under a name. Only a regular file that may be written is replaced: a name can be had
// without any right to the file, but who locked the file meant both.
enum class Standing { Nothing, Replaceable, Refused };
[[nodiscard]] Standing standingAt(const std::string& name);

// Removes the temporary files in a folder ("" for the current one) whose writers have died: those
// of this user and this machine that nobody has locked. A writer holds the lock on its file while
// it has a name, and the system drops it when the writer dies, so that no age has to be guessed.
// Where the file system knows no locks they stay.
void removeLeftovers(const std::string& folder);

// A new content for a file: written beside the target, without a name where the file system has
// such files, then put in the target's place by one rename. Whole bytes go by writeFileWhole();
// this is for what is written bit by bit.
class ReplacementFile {
public:
    // Opens the temporary file. The target may be missing.
    explicit ReplacementFile(const QString& target, Replacing replacing = Replacing::TheBytes);
    ~ReplacementFile();
    ReplacementFile(const ReplacementFile&) = delete;
    ReplacementFile& operator=(const ReplacementFile&) = delete;

    [[nodiscard]] bool isOpen() const { return m_file.isOpen(); }
    [[nodiscard]] int descriptor() const { return m_file.get(); }

    // Whether there is a target already. A file that is saved has its rights then; one that comes
    // in its place is private until it gets its own.
    [[nodiscard]] bool replaces() const { return m_replaces; }

    // Puts the file in the target's place, flushed before and its folder after if that is asked
    // for. When it fails, the target is what it was, and the temporary file goes away with this
    // object.
    [[nodiscard]] bool commit(Flush flush);

private:
    void openBeside();
    void openElsewhere();
    bool openUnnamed(const std::string& folder);
    bool openNamed(const std::string& folder);
    bool tryName(const std::string& name);
    bool takeFreeName(const std::string& folder,
                      const std::function<bool(const std::string&)>& take);
    bool rename();

    [[nodiscard]] mode_t mode() const;

    Replacing m_replacing;
    std::string m_target;    // links resolved
    std::string m_temporary; // "" while it has no name
    Descriptor m_file;
    bool m_replaces = false;
    bool m_isElsewhere = false; // outside the target's folder: to be written in place
};

} // namespace platform
