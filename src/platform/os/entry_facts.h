#pragma once

#include <QtGlobal>
#include <optional>
#include <sys/types.h>
#include <vector>

namespace platform {

// What the system tells of a file or a folder; times in seconds since 1970, UTC.
struct EntryFacts {
    bool isFile = false; // a regular one
    bool isFolder = false;
    bool isReadOnly = false; // by owner and mode alone
    qint64 modified = 0;
    qint64 created = 0; // that of the last change of its facts where nobody keeps its birth
};

// Looks at entries for the user that the process runs as when this is made.
class EntryInspector {
public:
    EntryInspector();

    // The facts of a name in an open folder, or of what it leads to if it is a link. One call of
    // the system. Nothing where the name is gone, dangles, or may not be looked at.
    [[nodiscard]] std::optional<EntryFacts> look(int folderDescriptor, const char* name) const;

private:
    [[nodiscard]] mode_t writeRightOf(uid_t owner, gid_t group) const;

    uid_t m_user;
    std::vector<gid_t> m_groups;
};

} // namespace platform
