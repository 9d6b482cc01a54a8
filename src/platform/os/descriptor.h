#pragma once

#include <QString>
#include <string>
#include <sys/types.h>
#include <utility>

namespace platform {

// Owns a file descriptor. Used inside this folder only.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int descriptor)
        : m_descriptor(descriptor)
    {
    }
    Descriptor(Descriptor&& other) noexcept
        : m_descriptor(other.release())
    {
    }
    Descriptor& operator=(Descriptor&& other) noexcept;
    ~Descriptor() { reset(); }

    [[nodiscard]] bool isOpen() const { return m_descriptor >= 0; }
    [[nodiscard]] int get() const { return m_descriptor; }
    [[nodiscard]] int release() { return std::exchange(m_descriptor, -1); }
    void reset();

private:
    int m_descriptor = -1;
};

// Opens by the path's bytes, closed in programs started from here, and never waiting for the other
// end of a pipe. A path that holds a NUL fails; errno tells why.
[[nodiscard]] Descriptor openDescriptor(const QString& path, int flags, mode_t mode = 0666);

// As openDescriptor, but only for a regular file.
[[nodiscard]] Descriptor openRegular(const QString& path, int flags, mode_t mode = 0666);

// All of the bytes, or false.
[[nodiscard]] bool writeAll(int descriptor, const char* bytes, qsizetype size);

// Writes what the one file has from where it stands to the other one.
[[nodiscard]] bool copyBytes(int from, int to);

// Waits until the bytes of a file are on the disk, as far as its file system knows of waiting.
[[nodiscard]] bool flushToDisk(int descriptor);

// Whether closing a file brings no late failure; the file stays open, and so does its lock.
[[nodiscard]] bool closesWell(int descriptor);

// Waits until the names in a folder ("" for the current one) are on the disk. Some file systems
// can't, and the bytes are safe by then.
void flushFolder(const std::string& folder);

// Whether a name leads to the open file, and not to another one or a link.
[[nodiscard]] bool isStillNamed(int descriptor, const std::string& name);

} // namespace platform
