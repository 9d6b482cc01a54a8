#include "platform/os/entry_facts.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr unsigned kWanted =
    STATX_TYPE | STATX_MODE | STATX_UID | STATX_GID | STATX_MTIME | STATX_CTIME | STATX_BTIME;

std::vector<gid_t> groupsOfProcess()
{
    std::vector<gid_t> groups(static_cast<std::size_t>(std::max(0, ::getgroups(0, nullptr))));
    const int count = ::getgroups(static_cast<int>(groups.size()), groups.data());
    groups.resize(static_cast<std::size_t>(std::max(0, count)));
    groups.push_back(::getegid());
    return groups;
}

} // namespace

EntryInspector::EntryInspector()
    : m_user(::geteuid())
    , m_groups(groupsOfProcess())
{
}

// The administrator may write everything; to that user a file is read-only when nobody else may.
mode_t EntryInspector::writeRightOf(uid_t owner, gid_t group) const
{
    if (m_user == 0) {
        return S_IWUSR | S_IWGRP | S_IWOTH;
    }
    if (m_user == owner) {
        return S_IWUSR;
    }
    const bool isMember = std::find(m_groups.begin(), m_groups.end(), group) != m_groups.end();
    return isMember ? S_IWGRP : S_IWOTH;
}

std::optional<EntryFacts> EntryInspector::look(int folderDescriptor, const char* name) const
{
    struct statx found = {};
    if (::statx(folderDescriptor, name, AT_NO_AUTOMOUNT, kWanted, &found) != 0) {
        return std::nullopt;
    }
    const bool hasBirth = (found.stx_mask & STATX_BTIME) != 0;
    EntryFacts facts;
    facts.isFile = S_ISREG(found.stx_mode);
    facts.isFolder = S_ISDIR(found.stx_mode);
    facts.isReadOnly = (found.stx_mode & writeRightOf(found.stx_uid, found.stx_gid)) == 0;
    facts.modified = found.stx_mtime.tv_sec;
    facts.created = hasBirth ? found.stx_btime.tv_sec : found.stx_ctime.tv_sec;
    return facts;
}

} // namespace platform
