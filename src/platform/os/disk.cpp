#include "platform/os/disk.h"

#include <cstdio>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace platform {

namespace {

Disk*& current()
{
    static Disk realDisk;
    static Disk* instance = &realDisk;
    return instance;
}

} // namespace

int Disk::open(const std::string& path, int flags, mode_t mode)
{
    return ::open(path.c_str(), flags, mode);
}

ssize_t Disk::write(int descriptor, const char* bytes, std::size_t size)
{
    return ::write(descriptor, bytes, size);
}

int Disk::sync(int descriptor)
{
    return ::fsync(descriptor);
}

int Disk::close(int descriptor)
{
    return ::close(descriptor);
}

int Disk::truncate(int descriptor, off_t size)
{
    return ::ftruncate(descriptor, size);
}

int Disk::lock(int descriptor)
{
    return ::flock(descriptor, LOCK_EX | LOCK_NB);
}

int Disk::changeOwner(int descriptor, uid_t user, gid_t group)
{
    return ::fchown(descriptor, user, group);
}

int Disk::setAttribute(int descriptor, const char* name, const std::string& value)
{
    return ::fsetxattr(descriptor, name, value.data(), value.size(), 0);
}

int Disk::link(int descriptor, const std::string& name)
{
    const std::string opened = "/proc/self/fd/" + std::to_string(descriptor);
    return ::linkat(AT_FDCWD, opened.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW);
}

int Disk::rename(const std::string& from, const std::string& to)
{
    return std::rename(from.c_str(), to.c_str());
}

int Disk::renameToFree(const std::string& from, const std::string& to)
{
    return ::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE);
}

int Disk::clone(int from, int to)
{
    return ::ioctl(to, FICLONE, from);
}

ssize_t Disk::copyRange(int from, int to, std::size_t size)
{
    return ::copy_file_range(from, nullptr, to, nullptr, size, 0);
}

Disk& disk()
{
    return *current();
}

ScopedDisk::ScopedDisk(Disk& replacement)
    : m_previous(current())
{
    current() = &replacement;
}

ScopedDisk::~ScopedDisk()
{
    current() = m_previous;
}

} // namespace platform
