#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>

namespace formats {

// The bytes of a regular file, seen in place. Parts of the file that vanish while it is open (it
// shrinks, its stick is pulled out) read as zeros instead of ending the program; that takes a
// handler for SIGBUS, which stands as long as any such object. At most four at a time.
class MappedFile {
public:
    // Nothing when the path names no regular file that can be read. Never waits for a pipe or a
    // device.
    [[nodiscard]] static std::optional<MappedFile> open(const std::string& path);

    MappedFile(MappedFile&& other) noexcept;
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;
    MappedFile& operator=(MappedFile&&) = delete;
    ~MappedFile();

    // Valid as long as the object lives. Another program may change the bytes at any time.
    [[nodiscard]] std::span<const std::byte> bytes() const { return m_bytes; }

private:
    explicit MappedFile(std::span<const std::byte> bytes);

    std::span<const std::byte> m_bytes;
};

} // namespace formats
