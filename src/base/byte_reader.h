#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace base {

// Bounds-checked access to the bytes of a file. Every read beyond the end gives zeros, as the
// picture readers expect of short files; nothing is ever read outside the span, which must outlive
// the reader.
class ByteReader {
public:
    explicit ByteReader(std::span<const std::byte> bytes)
        : m_bytes(bytes)
    {
    }

    // Bytes of the file.
    [[nodiscard]] std::size_t size() const { return m_bytes.size(); }

    // Number at a zero-based offset, in the byte order that the name tells.
    [[nodiscard]] std::uint8_t byteAt(std::size_t offset) const;
    [[nodiscard]] std::uint16_t little16At(std::size_t offset) const;
    [[nodiscard]] std::uint32_t little32At(std::size_t offset) const;
    [[nodiscard]] std::uint16_t big16At(std::size_t offset) const;
    [[nodiscard]] std::uint32_t big32At(std::size_t offset) const;

    // At most count bytes from the offset on; fewer, or none, where the file ends before.
    [[nodiscard]] std::span<const std::byte> slice(std::size_t offset, std::size_t count) const;
    [[nodiscard]] std::span<const std::byte> from(std::size_t offset) const;

private:
    std::span<const std::byte> m_bytes;
};

} // namespace base
