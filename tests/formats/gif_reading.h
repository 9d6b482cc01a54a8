#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <optional>
#include <vector>

// Reads GIF files back the plain way, for tests of the writer.
namespace gif {

using Bytes = std::vector<std::byte>;
using Pixels = std::vector<std::uint8_t>;

struct Decoded {
    int width = 0;
    int height = 0;
    Pixels pixels;
    unsigned widestCode = 0;
    int clearCodes = 0;
    std::vector<std::size_t> blockSizes;
    std::size_t bytesUsed = 0;
};

inline unsigned byteAt(const Bytes& file, std::size_t at)
{
    return at < file.size() ? std::to_integer<unsigned>(file[at]) : 0U;
}

inline int wordAt(const Bytes& file, std::size_t at)
{
    return static_cast<int>(byteAt(file, at) | byteAt(file, at + 1) << 8U);
}

// Strings as pairs of a shorter string and a last pixel, the way a viewer unpacks them.
class Unpacker {
public:
    Unpacker(const Bytes& data, Decoded& result)
        : m_data(data)
        , m_result(result)
    {
    }

    void run(std::size_t pixelCount)
    {
        while (true) {
            const unsigned code = next();
            m_result.widestCode = std::max(m_result.widestCode, m_width);
            if (code == 257 || m_at > m_data.size() * 8 + 12) {
                return;
            }
            if (code == 256) {
                restart();
            } else {
                add(code);
            }
            if (m_result.pixels.size() >= pixelCount) {
                return;
            }
        }
    }

private:
    unsigned next()
    {
        unsigned code = 0;
        for (unsigned bit = 0; bit < m_width; ++bit, ++m_at) {
            code |= (byteAt(m_data, m_at / 8) >> (m_at % 8) & 1U) << bit;
        }
        return code;
    }

    void restart()
    {
        ++m_result.clearCodes;
        m_strings.assign(258, {});
        for (std::size_t i = 0; i < 256; ++i) {
            m_strings[i] = {static_cast<std::uint8_t>(i)};
        }
        m_previous.reset();
        m_width = 9;
    }

    void add(unsigned code)
    {
        ASSERT_LE(code, m_strings.size());
        if (m_previous) {
            Pixels longer = m_strings[*m_previous];
            longer.push_back(code < m_strings.size() ? m_strings[code].front() : longer.front());
            m_strings.push_back(longer);
            if (m_strings.size() == std::size_t{1} << m_width && m_width < 12) {
                ++m_width;
            }
        }
        const Pixels& string = m_strings[code];
        m_result.pixels.insert(m_result.pixels.end(), string.begin(), string.end());
        m_previous = code;
    }

    const Bytes& m_data;
    Decoded& m_result;
    std::vector<Pixels> m_strings;
    std::optional<unsigned> m_previous;
    std::size_t m_at = 0;
    unsigned m_width = 9;
};

// Reads the image block that begins behind the separator at the given offset.
inline Decoded decodeImage(const Bytes& file, std::size_t at)
{
    Decoded result;
    result.width = wordAt(file, at + 4);
    result.height = wordAt(file, at + 6);
    const unsigned flags = byteAt(file, at + 8);
    at += 9 + ((flags & 0x80U) != 0 ? 3U * (2U << (flags & 7U)) : 0U);
    EXPECT_EQ(byteAt(file, at), 8U);
    ++at;
    Bytes data;
    while (byteAt(file, at) != 0 && at < file.size()) {
        const std::size_t size = byteAt(file, at);
        result.blockSizes.push_back(size);
        for (std::size_t i = 1; i <= size; ++i) {
            data.push_back(static_cast<std::byte>(byteAt(file, at + i)));
        }
        at += size + 1;
    }
    result.bytesUsed = at + 1;
    Unpacker(data, result)
        .run(static_cast<std::size_t>(result.width) * static_cast<std::size_t>(result.height));
    return result;
}

} // namespace gif
