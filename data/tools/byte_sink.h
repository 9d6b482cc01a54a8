#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace tools {

using Bytes = std::vector<std::uint8_t>;

// Grows a file in memory, number by number; the name of a function tells width and byte order.
class ByteSink {
public:
    void byte(unsigned value) { m_bytes.push_back(static_cast<std::uint8_t>(value)); }

    void little16(unsigned value)
    {
        byte(value);
        byte(value >> 8U);
    }

    void little32(std::uint32_t value)
    {
        little16(value & 0xFFFFU);
        little16(value >> 16U);
    }

    void big16(unsigned value)
    {
        byte(value >> 8U);
        byte(value);
    }

    void big32(std::uint32_t value)
    {
        big16(value >> 16U);
        big16(value & 0xFFFFU);
    }

    void text(std::string_view characters)
    {
        m_bytes.insert(m_bytes.end(), characters.begin(), characters.end());
    }

    void append(std::span<const std::uint8_t> bytes)
    {
        m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end());
    }

    void zeros(std::size_t count) { m_bytes.resize(m_bytes.size() + count); }

    // Overwrites a length that was left open when its place was written.
    void setLittle32(std::size_t offset, std::uint32_t value)
    {
        for (unsigned i = 0; i < 4; ++i) {
            m_bytes[offset + i] = static_cast<std::uint8_t>(value >> (8 * i));
        }
    }

    [[nodiscard]] std::size_t size() const { return m_bytes.size(); }
    [[nodiscard]] const Bytes& bytes() const { return m_bytes; }

private:
    Bytes m_bytes;
};

} // namespace tools
