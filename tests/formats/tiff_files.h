#pragma once

#include "formats/file_bytes.h"

enum class ByteOrder { little, big };

constexpr int kShort = 3;
constexpr int kLong = 4;

// Builds a TIFF file in either byte order: the header, a directory directly behind it, then pixels.
class TiffFile {
public:
    explicit TiffFile(ByteOrder order = ByteOrder::little)
        : m_order(order)
    {
    }

    TiffFile& entry(int tag, int type, std::int64_t count, std::int64_t value)
    {
        number16(m_entries, tag);
        number16(m_entries, type);
        number32(m_entries, count);
        if (type == kLong) {
            number32(m_entries, value);
        } else {
            number16(m_entries, value);
            number16(m_entries, 0);
        }
        ++m_count;
        return *this;
    }

    TiffFile& pixels(const FileBytes& bytes)
    {
        m_pixels.append(bytes);
        return *this;
    }

    // Where the bytes behind the directory's end stand, for a number of entries.
    [[nodiscard]] static int pixelOffset(int entries) { return 8 + 2 + 12 * entries + 4; }

    [[nodiscard]] FileBytes bytes() const
    {
        FileBytes file;
        file.text(m_order == ByteOrder::little ? "II" : "MM");
        number16(file, 42);
        number32(file, 8);
        number16(file, m_count);
        file.append(m_entries);
        number32(file, 0);
        return file.append(m_pixels);
    }

private:
    void number16(FileBytes& file, std::int64_t value) const
    {
        m_order == ByteOrder::little ? file.little16(value) : file.big16(value);
    }

    void number32(FileBytes& file, std::int64_t value) const
    {
        m_order == ByteOrder::little ? file.little32(value) : file.big32(value);
    }

    ByteOrder m_order;
    int m_count = 0;
    FileBytes m_entries;
    FileBytes m_pixels;
};

// A directory of seven entries that is accepted, with all numbers of the type. Its pixels begin at
// the strip's offset if the width is two.
inline TiffFile tiffPicture(int width, int height, ByteOrder order = ByteOrder::little,
                            int type = kShort)
{
    TiffFile file(order);
    file.entry(256, type, 1, width).entry(257, type, 1, height).entry(258, type, 3, 100);
    file.entry(259, type, 1, 1).entry(262, type, 1, 2);
    file.entry(273, type, 1, TiffFile::pixelOffset(7)).entry(284, type, 1, 1);
    return file;
}
