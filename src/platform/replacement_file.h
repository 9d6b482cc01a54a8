#pragma once

#include "platform/descriptor.h"

#include <QString>
#include <string>

namespace platform {

// A new content for a file: written beside the target under a hidden name, then put in the target's
// place by one rename. What is left over by a process that died is reused by the next one, so that
// nothing piles up. Used inside this folder only.
class ReplacementFile {
public:
    // Opens the temporary file. The target may be missing; anything else than a regular file fails.
    explicit ReplacementFile(const QString& target);
    ~ReplacementFile();
    ReplacementFile(const ReplacementFile&) = delete;
    ReplacementFile& operator=(const ReplacementFile&) = delete;

    [[nodiscard]] bool isOpen() const { return m_file.isOpen(); }
    [[nodiscard]] int descriptor() const { return m_file.get(); }

    // Whether there is a target already, whose permissions the new file has then been given.
    [[nodiscard]] bool replaces() const { return m_replaces; }

    // Waits until the bytes are on the disk.
    [[nodiscard]] bool flush();

    // Puts the file in the target's place. Without it the temporary file goes away.
    [[nodiscard]] bool commit();

private:
    void openTemporary();
    bool tryName(const std::string& name);
    void takePermissions();

    std::string m_target; // links resolved
    std::string m_temporary;
    Descriptor m_file;
    bool m_replaces = false;
};

} // namespace platform
