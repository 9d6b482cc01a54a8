#pragma once

#include "platform/os/disk.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace support {

// A disk that refuses what a test wants it to refuse. What it tells late costs the bytes, as on a
// disk that ran full behind the program's back: the file keeps its length and holds zeros.
class UnrulyDisk : public platform::Disk {
public:
    UnrulyDisk()
        : m_placed(*this)
    {
    }

    int syncError = 0;   // for regular files
    int closeError = 0;  // for regular files that could be written
    int renameError = 0; // nothing is renamed
    int writeError = 0;  // once the room is used up
    std::size_t room = 0;
    std::string failing;    // only files whose path ends so fail; "" for all
    int failures = INT_MAX; // so many of them, then all goes well
    bool losesBytes = true; // when it tells late
    bool hasUnnamedFiles = true;
    bool hasLocks = true;
    bool hasAttributes = true;
    bool hasSparingRename = true; // one that fails where the name is taken
    bool copiesRanges = true;
    bool clones = false;   // bytes that share no blocks have to do
    std::string otherDisk; // the start of paths that no rename from elsewhere reaches, or back
    std::function<void()> beforeRename;

    // What came to pass: "sync PATH", "rename PATH".
    std::vector<std::string> events;

    [[nodiscard]] std::ptrdiff_t indexOf(const std::string& event) const
    {
        const auto found = std::find(events.begin(), events.end(), event);
        return found == events.end() ? -1 : found - events.begin();
    }

    int open(const std::string& path, int flags, mode_t mode) override
    {
        if (!hasUnnamedFiles && (flags & O_TMPFILE) == O_TMPFILE) {
            errno = EOPNOTSUPP;
            return -1;
        }
        return Disk::open(path, flags, mode);
    }

    ssize_t write(int descriptor, const char* bytes, std::size_t size) override
    {
        if (writeError == 0 || !concerns(descriptor)) {
            return Disk::write(descriptor, bytes, size);
        }
        if (room == 0) {
            return fail(writeError);
        }
        const ssize_t written = Disk::write(descriptor, bytes, std::min(size, room));
        room -= static_cast<std::size_t>(std::max<ssize_t>(written, 0));
        return written;
    }

    int sync(int descriptor) override
    {
        events.push_back("sync " + pathOf(descriptor));
        if (syncError != 0 && isRegular(descriptor) && concerns(descriptor) && takeFailure()) {
            loseBytes(descriptor);
            return fail(syncError);
        }
        return Disk::sync(descriptor);
    }

    int close(int descriptor) override
    {
        const bool fails = closeError != 0 && isRegular(descriptor) && concerns(descriptor) &&
                           (::fcntl(descriptor, F_GETFL) & O_ACCMODE) != O_RDONLY && takeFailure();
        if (fails) {
            loseBytes(descriptor);
        }
        const int result = Disk::close(descriptor);
        return fails ? fail(closeError) : result;
    }

    int setAttribute(int descriptor, const char* name, const std::string& value) override
    {
        return hasAttributes ? Disk::setAttribute(descriptor, name, value) : fail(EOPNOTSUPP);
    }

    int lock(int descriptor) override { return hasLocks ? Disk::lock(descriptor) : fail(ENOLCK); }

    int link(int descriptor, const std::string& name) override
    {
        const bool isTarget = name.find("/.") == std::string::npos;
        return renameError != 0 && isTarget ? fail(renameError) : Disk::link(descriptor, name);
    }

    int rename(const std::string& from, const std::string& to) override
    {
        if (beforeRename) {
            beforeRename();
        }
        events.push_back("rename " + to);
        if (!otherDisk.empty() && from.starts_with(otherDisk) != to.starts_with(otherDisk)) {
            return fail(EXDEV);
        }
        return renameError != 0 ? fail(renameError) : Disk::rename(from, to);
    }

    int renameToFree(const std::string& from, const std::string& to) override
    {
        return hasSparingRename ? Disk::renameToFree(from, to) : fail(EINVAL);
    }

    int clone(int from, int to) override
    {
        if (!clones) {
            return fail(EOPNOTSUPP);
        }
        while (Disk::copyRange(from, to, 1U << 20U) > 0) {
        }
        return 0;
    }

    ssize_t copyRange(int from, int to, std::size_t size) override
    {
        return copiesRanges && writeError == 0 ? Disk::copyRange(from, to, size) : fail(EXDEV);
    }

private:
    static int fail(int error)
    {
        errno = error;
        return -1;
    }

    static std::string pathOf(int descriptor)
    {
        std::array<char, PATH_MAX> path{};
        const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
        const ssize_t length = ::readlink(link.c_str(), path.data(), path.size());
        return {path.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0))};
    }

    static bool isRegular(int descriptor)
    {
        struct stat facts = {};
        return ::fstat(descriptor, &facts) == 0 && S_ISREG(facts.st_mode);
    }

    [[nodiscard]] bool concerns(int descriptor) const
    {
        return pathOf(descriptor).ends_with(failing);
    }

    bool takeFailure() { return failures > 0 && failures-- > 0; }

    void loseBytes(int descriptor) const
    {
        if (!losesBytes) {
            return;
        }
        const off_t size = ::lseek(descriptor, 0, SEEK_END);
        if (::ftruncate(descriptor, 0) != 0 || ::ftruncate(descriptor, size) != 0) {
            std::abort();
        }
    }

    platform::ScopedDisk m_placed;
};

} // namespace support
