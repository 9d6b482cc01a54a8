#include "base/byte_reader.h"

#include <algorithm>

namespace base {

namespace {

// The number in the first count bytes of a slice that may be shorter; missing bytes count as zero.
std::uint32_t number(std::span<const std::byte> bytes, unsigned count, bool littleEndian)
{
    std::uint32_t value = 0;
    for (unsigned i = 0; i < count; ++i) {
        const std::uint32_t byte = i < bytes.size() ? std::to_integer<std::uint32_t>(bytes[i]) : 0;
        value |= byte << (8 * (littleEndian ? i : count - 1 - i));
    }
    return value;
}

} // namespace

std::uint8_t ByteReader::byteAt(std::size_t offset) const
{
    return offset < m_bytes.size() ? std::to_integer<std::uint8_t>(m_bytes[offset]) : 0;
}

std::uint16_t ByteReader::little16At(std::size_t offset) const
{
    return static_cast<std::uint16_t>(number(slice(offset, 2), 2, true));
}

std::uint32_t ByteReader::little32At(std::size_t offset) const
{
    return number(slice(offset, 4), 4, true);
}

std::uint16_t ByteReader::big16At(std::size_t offset) const
{
    return static_cast<std::uint16_t>(number(slice(offset, 2), 2, false));
}

std::uint32_t ByteReader::big32At(std::size_t offset) const
{
    return number(slice(offset, 4), 4, false);
}

std::span<const std::byte> ByteReader::slice(std::size_t offset, std::size_t count) const
{
    if (offset >= m_bytes.size()) {
        return {};
    }
    return m_bytes.subspan(offset, std::min(count, m_bytes.size() - offset));
}

std::span<const std::byte> ByteReader::from(std::size_t offset) const
{
    return slice(offset, m_bytes.size());
}

} // namespace base
