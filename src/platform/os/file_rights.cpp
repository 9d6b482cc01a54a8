#include "platform/os/file_rights.h"

#include "platform/os/disk.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <vector>

namespace platform {

namespace {

constexpr const char* kAccessList = "system.posix_acl_access";

constexpr std::array<std::string_view, 2> kKept = {"user.", "security."};
// What speaks of the old bytes, or lets them run with more rights than their user has.
constexpr std::array<std::string_view, 3> kBoundToBytes = {"security.capability", "security.evm",
                                                           "security.ima"};

// An access list has a version of four bytes, then eight bytes an entry: tag and rights with two,
// low byte first, and an id.
constexpr std::size_t kListStart = 4;
constexpr std::size_t kEntryBytes = 8;
constexpr std::size_t kRightsAt = 2;
constexpr char kGroupTag = 4;
constexpr char kOthersTag = 32;

std::optional<std::string> attribute(const std::string& path, const char* name)
{
    const ssize_t size = ::lgetxattr(path.c_str(), name, nullptr, 0);
    if (size < 0) {
        return std::nullopt;
    }
    std::string value(static_cast<std::size_t>(size), '\0');
    const ssize_t got = ::lgetxattr(path.c_str(), name, value.data(), value.size());
    if (got < 0) {
        return std::nullopt;
    }
    value.resize(static_cast<std::size_t>(got));
    return value;
}

std::vector<std::string> attributeNames(const std::string& path)
{
    const ssize_t size = ::llistxattr(path.c_str(), nullptr, 0);
    std::string names(static_cast<std::size_t>(std::max<ssize_t>(size, 0)), '\0');
    const ssize_t got = ::llistxattr(path.c_str(), names.data(), names.size());
    names.resize(static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    std::vector<std::string> list;
    for (std::size_t at = 0; at < names.size(); at += list.back().size() + 1) {
        list.emplace_back(names.c_str() + at);
    }
    return list;
}

bool isKept(std::string_view name)
{
    return std::any_of(kKept.begin(), kKept.end(),
                       [&](std::string_view start) { return name.starts_with(start); }) &&
           std::find(kBoundToBytes.begin(), kBoundToBytes.end(), name) == kBoundToBytes.end();
}

void takeAttributes(int descriptor, const std::string& from)
{
    for (const std::string& name : attributeNames(from)) {
        const auto value = isKept(name) ? attribute(from, name.c_str()) : std::nullopt;
        if (value) {
            // A picture is saved even where what was noted about it can't be.
            static_cast<void>(disk().setAttribute(descriptor, name.c_str(), *value));
        }
    }
}

// Tells whether the file has the group then. Only the superuser can give a file away.
bool takeOwner(int descriptor, const struct stat& facts)
{
    if (disk().changeOwner(descriptor, facts.st_uid, facts.st_gid) != 0) {
        static_cast<void>(disk().changeOwner(descriptor, static_cast<uid_t>(-1), facts.st_gid));
    }
    struct stat now = {};
    return ::fstat(descriptor, &now) == 0 && now.st_gid == facts.st_gid;
}

// Who was in the lost group is one of the others now, and who is in the new one was: both may do
// what both could.
mode_t withoutGroup(mode_t mode)
{
    const mode_t shared = (mode >> 3U) & mode & 07U;
    return (mode & 0700U) | (shared << 3U) | shared;
}

std::string listWithoutGroup(std::string list)
{
    char shared = 7;
    std::vector<std::size_t> places;
    for (std::size_t at = kListStart; at + kEntryBytes <= list.size(); at += kEntryBytes) {
        if (list[at] == kGroupTag || list[at] == kOthersTag) {
            places.push_back(at + kRightsAt);
            shared = static_cast<char>(shared & list[at + kRightsAt]);
        }
    }
    for (const std::size_t place : places) {
        list[place] = shared;
    }
    return list;
}

} // namespace

void takeRights(int descriptor, const std::string& from)
{
    struct stat facts = {};
    if (::stat(from.c_str(), &facts) != 0) {
        return;
    }
    const bool hasGroup = takeOwner(descriptor, facts);
    takeAttributes(descriptor, from);
    // The right to run as the owner or the group was given to other bytes.
    mode_t mode = facts.st_mode & 0777U;
    if (const auto list = attribute(from, kAccessList)) {
        if (disk().setAttribute(descriptor, kAccessList,
                                hasGroup ? *list : listWithoutGroup(*list)) == 0) {
            return;
        }
        mode &= 0700U; // the bits of the group were the most that the list gave to anybody
    }
    // The folder may give its new files a list.
    ::fremovexattr(descriptor, kAccessList);
    static_cast<void>(::fchmod(descriptor, hasGroup ? mode : withoutGroup(mode)));
}

} // namespace platform
