#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>
#include <vector>

// A file put together field by field.
class FileBytes {
public:
    FileBytes& byte(unsigned value)
    {
        m_bytes.push_back(static_cast<std::byte>(value & 0xFFU));
        return *this;
    }

    FileBytes& bytes(std::initializer_list<unsigned> values)
    {
        for (const unsigned value : values) {
            byte(value);
        }
        return *this;
    }

    FileBytes& fill(std::size_t count, unsigned value)
    {
        m_bytes.insert(m_bytes.end(), count, static_cast<std::byte>(value & 0xFFU));
        return *this;
    }

    FileBytes& text(std::string_view letters)
    {
        for (const char letter : letters) {
            byte(static_cast<unsigned char>(letter));
        }
        return *this;
    }

    FileBytes& little16(std::int64_t value) { return little(value, 2); }
    FileBytes& little32(std::int64_t value) { return little(value, 4); }
    FileBytes& big16(std::int64_t value) { return big(value, 2); }
    FileBytes& big32(std::int64_t value) { return big(value, 4); }

    // Writes over what stands there.
    FileBytes& set(std::size_t offset, unsigned value)
    {
        m_bytes.at(offset) = static_cast<std::byte>(value & 0xFFU);
        return *this;
    }

    FileBytes& append(const FileBytes& other)
    {
        m_bytes.insert(m_bytes.end(), other.m_bytes.begin(), other.m_bytes.end());
        return *this;
    }

    FileBytes& cutTo(std::size_t size)
    {
        m_bytes.resize(size);
        return *this;
    }

    [[nodiscard]] std::size_t size() const { return m_bytes.size(); }
    [[nodiscard]] const std::vector<std::byte>& vector() const { return m_bytes; }
    [[nodiscard]] operator std::span<const std::byte>() const { return m_bytes; }

private:
    FileBytes& little(std::int64_t value, unsigned count)
    {
        for (unsigned i = 0; i < count; ++i) {
            byte(static_cast<unsigned>(value >> (8 * i)));
        }
        return *this;
    }

    FileBytes& big(std::int64_t value, unsigned count)
    {
        for (unsigned i = count; i > 0; --i) {
            byte(static_cast<unsigned>(value >> (8 * (i - 1))));
        }
        return *this;
    }

    std::vector<std::byte> m_bytes;
};
