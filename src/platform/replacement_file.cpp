#include "platform/replacement_file.h"

#include "platform/paths.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr int kMostNames = 100;
constexpr int kMostLinks = 40; // as many as the system follows

std::string folderPart(const std::string& path)
{
    const std::size_t separator = path.rfind('/');
    return separator == std::string::npos ? std::string() : path.substr(0, separator + 1);
}

// The path that a link tells, seen from where the link stands; nothing for what is no link.
std::optional<std::string> linkTarget(const std::string& link)
{
    std::array<char, PATH_MAX> text{};
    const ssize_t length = ::readlink(link.c_str(), text.data(), text.size());
    if (length <= 0 || static_cast<std::size_t>(length) == text.size()) {
        return std::nullopt;
    }
    const std::string target(text.data(), static_cast<std::size_t>(length));
    return target.front() == '/' ? target : folderPart(link) + target;
}

// The file that a path leads to through links, whether it is there already or not. "" for links
// that lead in a circle.
std::string resolved(std::string path)
{
    for (int links = 0; links <= kMostLinks; ++links) {
        const std::optional<std::string> next = linkTarget(path);
        if (!next) {
            return path;
        }
        path = *next;
    }
    return {};
}

bool isStillNamed(int descriptor, const std::string& name)
{
    struct stat opened = {};
    struct stat named = {};
    return ::fstat(descriptor, &opened) == 0 && ::lstat(name.c_str(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

// Where a file system knows no locks, everybody has the lock.
bool lockNow(int descriptor)
{
    return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

// Removes a temporary file whose writer has died. One that is being written is locked.
bool removeLeftover(const std::string& name)
{
    const Descriptor leftover(::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW));
    return leftover.isOpen() && lockNow(leftover.get()) && isStillNamed(leftover.get(), name) &&
           ::unlink(name.c_str()) == 0;
}

} // namespace

ReplacementFile::ReplacementFile(const QString& target)
{
    if (target.contains(QChar(u'\0')) || target.isEmpty()) {
        return;
    }
    m_target = resolved(toNative(target));
    if (m_target.empty()) {
        return;
    }
    struct stat facts = {};
    if (::stat(m_target.c_str(), &facts) == 0) {
        // A name can be replaced without any right to the file; who locked the file meant both.
        if (!S_ISREG(facts.st_mode) ||
            ::faccessat(AT_FDCWD, m_target.c_str(), W_OK, AT_EACCESS) != 0) {
            return;
        }
        m_replaces = true;
    }
    openTemporary();
    if (isOpen() && m_replaces) {
        takePermissions();
    }
}

ReplacementFile::~ReplacementFile()
{
    if (isOpen()) {
        ::unlink(m_temporary.c_str());
    }
}

bool ReplacementFile::tryName(const std::string& name)
{
    Descriptor file(::open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    // Another process may take the new file for a leftover until it is locked.
    if (!file.isOpen() || !lockNow(file.get()) || !isStillNamed(file.get(), name)) {
        return false;
    }
    m_file = std::move(file);
    m_temporary = name;
    return true;
}

void ReplacementFile::openTemporary()
{
    const std::string folder = folderPart(m_target);
    for (int number = 0; number < kMostNames; ++number) {
        const std::string name = folder + ".vistara-new-" + std::to_string(number);
        if (tryName(name)) {
            return;
        }
        if (errno == EEXIST && removeLeftover(name) && tryName(name)) {
            return;
        }
        if (errno == EACCES || errno == EROFS || errno == ENOENT || errno == ENOTDIR) {
            return;
        }
    }
}

void ReplacementFile::takePermissions()
{
    struct stat facts = {};
    if (::stat(m_target.c_str(), &facts) != 0) {
        return;
    }
    // The owner can be kept by the superuser only; for everybody else it is the same one anyway.
    // The owner comes first, because changing it takes some permission bits away.
    static_cast<void>(::fchown(m_file.get(), facts.st_uid, facts.st_gid) == 0);
    static_cast<void>(::fchmod(m_file.get(), facts.st_mode & 07777U));
}

bool ReplacementFile::flush()
{
    return ::fsync(m_file.get()) == 0;
}

bool ReplacementFile::commit()
{
    if (std::rename(m_temporary.c_str(), m_target.c_str()) != 0) {
        return false;
    }
    m_file.reset();
    return true;
}

} // namespace platform
