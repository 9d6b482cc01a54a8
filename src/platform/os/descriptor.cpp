#include "platform/os/descriptor.h"

#include "platform/os/disk.h"
#include "platform/os/paths.h"

#include <QByteArray>
#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept
{
    if (this != &other) {
        reset();
        m_descriptor = other.release();
    }
    return *this;
}

void Descriptor::reset()
{
    if (m_descriptor >= 0) {
        disk().close(m_descriptor);
        m_descriptor = -1;
    }
}

Descriptor openDescriptor(const QString& path, int flags, mode_t mode)
{
    if (path.contains(QChar(u'\0'))) {
        errno = EINVAL;
        return {};
    }
    const std::string native = toNative(path);
    int descriptor = -1;
    do {
        descriptor = disk().open(native, flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, mode);
    } while (descriptor < 0 && errno == EINTR);
    return Descriptor(descriptor);
}

Descriptor openRegular(const QString& path, int flags, mode_t mode)
{
    Descriptor file = openDescriptor(path, flags, mode);
    struct stat facts = {};
    if (file.isOpen() && (::fstat(file.get(), &facts) != 0 || !S_ISREG(facts.st_mode))) {
        errno = EINVAL;
        return {};
    }
    return file;
}

bool writeAll(int descriptor, const char* bytes, qsizetype size)
{
    // One call takes at most about 2 GB.
    constexpr qsizetype kMostAtOnce = qsizetype(1) << 30;
    while (size > 0) {
        const ssize_t written =
            disk().write(descriptor, bytes, static_cast<std::size_t>(std::min(size, kMostAtOnce)));
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return false;
        }
        bytes += written;
        size -= written;
    }
    return true;
}

bool copyBytes(int from, int to)
{
    constexpr std::size_t kBlock = std::size_t(1) << 20;
    QByteArray block(static_cast<qsizetype>(kBlock), Qt::Uninitialized);
    while (true) {
        const ssize_t got = ::read(from, block.data(), kBlock);
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got <= 0) {
            return got == 0;
        }
        if (!writeAll(to, block.constData(), got)) {
            return false;
        }
    }
}

bool flushToDisk(int descriptor)
{
    int result = -1;
    do {
        result = disk().sync(descriptor);
    } while (result != 0 && errno == EINTR);
    return result == 0 || errno == EINVAL || errno == ENOSYS || errno == EOPNOTSUPP;
}

bool closesWell(int descriptor)
{
    // A file system hands in late failures whenever one of a file's descriptors is closed.
    const int copy = ::fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
    return copy >= 0 && (disk().close(copy) == 0 || errno == EINTR);
}

void flushFolder(const std::string& folder)
{
    const Descriptor opened(disk().open(folder.empty() ? "." : folder,
                                        O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK, 0));
    if (opened.isOpen()) {
        static_cast<void>(flushToDisk(opened.get()));
    }
}

bool isStillNamed(int descriptor, const std::string& name)
{
    struct stat opened = {};
    struct stat named = {};
    return ::fstat(descriptor, &opened) == 0 && ::lstat(name.c_str(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

} // namespace platform
