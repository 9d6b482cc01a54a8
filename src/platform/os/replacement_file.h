#pragma once

#include "platform/os/descriptor.h"
#include "platform/os/files.h"

#include <QString>
#include <functional>
#include <string>

namespace platform {

// A new content for a file: written beside the target, without a name where the file system has
// such files, then put in the target's place by one rename. A target that can be written in a
// folder that can't is written in place. Used inside this folder only.
class ReplacementFile {
public:
    // Opens the temporary file. The target may be missing; anything else than a regular file that
    // may be written fails.
    explicit ReplacementFile(const QString& target);
    ~ReplacementFile();
    ReplacementFile(const ReplacementFile&) = delete;
    ReplacementFile& operator=(const ReplacementFile&) = delete;

    [[nodiscard]] bool isOpen() const { return m_file.isOpen(); }
    [[nodiscard]] int descriptor() const { return m_file.get(); }

    // Whether there is a target already, whose rights the new file has then been given.
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

    std::string m_target;    // links resolved
    std::string m_temporary; // "" while it has no name
    Descriptor m_file;
    bool m_replaces = false;
    bool m_isElsewhere = false; // outside the target's folder: to be written in place
};

} // namespace platform
