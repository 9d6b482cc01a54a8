#pragma once

#include <cstddef>
#include <string>
#include <sys/types.h>

namespace platform {

// The calls that bring bytes to a disk, as the system has them: errno tells why one failed. They
// stand together because a disk may refuse late, in any one of them, and tests have to see what
// becomes of a file then. Used inside this folder only.
class Disk {
public:
    virtual ~Disk() = default;

    virtual int open(const std::string& path, int flags, mode_t mode);
    virtual ssize_t write(int descriptor, const char* bytes, std::size_t size);
    virtual int sync(int descriptor);
    virtual int close(int descriptor);
    virtual int truncate(int descriptor, off_t size);
    // Takes the lock on a file for itself, or fails at once when another has it.
    virtual int lock(int descriptor);
    virtual int changeOwner(int descriptor, uid_t user, gid_t group);
    virtual int setAttribute(int descriptor, const char* name, const std::string& value);
    // Gives a file that has no name, or another one, this name; never one that is taken.
    virtual int link(int descriptor, const std::string& name);
    virtual int rename(const std::string& from, const std::string& to);
    // Renames, but never to a name that is taken.
    virtual int renameToFree(const std::string& from, const std::string& to);
    // Lets an empty file share the blocks of another one, where the file system can.
    virtual int clone(int from, int to);
    // Copies bytes within the system, from where either file stands: how many, 0 at the end.
    virtual ssize_t copyRange(int from, int to, std::size_t size);
};

// The real disk, or the one that a test put in its place.
[[nodiscard]] Disk& disk();

class ScopedDisk {
public:
    explicit ScopedDisk(Disk& replacement);
    ~ScopedDisk();
    ScopedDisk(const ScopedDisk&) = delete;
    ScopedDisk& operator=(const ScopedDisk&) = delete;

private:
    Disk* m_previous;
};

} // namespace platform
