#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace gif {

// Works the code stream of a GIF image out with linked lists and a walk from string to string:
// slow, and plain enough to be the measure of the encoder.
class PlainCoder {
public:
    explicit PlainCoder(std::vector<std::byte>& file)
        : m_file(file)
    {
    }

    void encode(const std::vector<std::uint8_t>& pixels)
    {
        emit(256);
        reset();
        std::size_t prefix = pixels.front();
        for (std::size_t i = 1; i < pixels.size(); ++i) {
            const std::optional<std::size_t> longer = find(prefix, pixels[i]);
            if (longer) {
                prefix = *longer;
                continue;
            }
            emit(prefix);
            m_suffix[m_nextFree] = pixels[i];
            ++m_nextFree;
            if (m_nextFree > m_threshold) {
                outgrow();
            }
            prefix = pixels[i];
        }
        emit(prefix);
        emit(257);
        if (m_bitCount > 0) {
            m_bitCount = 8;
            pushBytes();
        }
        if (!m_block.empty()) {
            writeBlock();
        }
        m_file.push_back(std::byte{0});
    }

private:
    std::optional<std::size_t> find(std::size_t prefix, std::uint8_t pixel)
    {
        if (m_children[prefix] == 0) {
            m_children[prefix] = m_nextFree;
            return std::nullopt;
        }
        std::size_t n = m_children[prefix];
        while (m_suffix[n] != pixel) {
            if (m_siblings[n] == 0) {
                m_siblings[n] = m_nextFree;
                return std::nullopt;
            }
            n = m_siblings[n];
        }
        return n;
    }

    void outgrow()
    {
        if (m_width >= 12) {
            emit(256);
            reset();
            return;
        }
        ++m_width;
        m_threshold *= 2;
    }

    void reset()
    {
        m_width = 9;
        m_nextFree = 258;
        m_threshold = 512;
        m_children.fill(0);
        m_siblings.fill(0);
        m_suffix.fill(0);
    }

    void emit(std::size_t code)
    {
        m_bits |= static_cast<std::uint32_t>(code) << m_bitCount;
        m_bitCount += m_width;
        pushBytes();
    }

    void pushBytes()
    {
        for (; m_bitCount >= 8; m_bitCount -= 8, m_bits >>= 8U) {
            m_block.push_back(static_cast<std::byte>(m_bits & 0xFFU));
            if (m_block.size() == 255) {
                writeBlock();
            }
        }
    }

    void writeBlock()
    {
        m_file.push_back(static_cast<std::byte>(m_block.size()));
        m_file.insert(m_file.end(), m_block.begin(), m_block.end());
        m_block.clear();
    }

    std::vector<std::byte>& m_file;
    std::vector<std::byte> m_block;
    std::array<std::size_t, 4097> m_children{};
    std::array<std::size_t, 4097> m_siblings{};
    std::array<std::uint8_t, 4097> m_suffix{};
    std::size_t m_nextFree = 258;
    std::size_t m_threshold = 512;
    std::uint32_t m_bits = 0;
    unsigned m_bitCount = 0;
    unsigned m_width = 9;
};

} // namespace gif
