#include "platform/descriptor.h"

#include "platform/paths.h"

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
        ::close(m_descriptor);
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
        descriptor = ::open(native.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, mode);
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
            ::write(descriptor, bytes, static_cast<std::size_t>(std::min(size, kMostAtOnce)));
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

} // namespace platform
