#include "formats/literal_readers.h"

#include <array>
#include <limits>
#include <stdexcept>

namespace literal {

namespace {

using File = std::span<const std::byte>;

constexpr std::int64_t kLargestArray = 512LL * 1024 * 1024;

[[noreturn]] void fail()
{
    throw std::range_error("the reader ends here");
}

std::int64_t as16(std::int64_t value)
{
    if (value < -32768 || value > 32767) {
        fail();
    }
    return value;
}

std::int64_t as32(std::int64_t value)
{
    if (value < std::numeric_limits<std::int32_t>::min() ||
        value > std::numeric_limits<std::int32_t>::max()) {
        fail();
    }
    return value;
}

// Bytes with both bounds.
class Array {
public:
    Array(std::int64_t first, std::int64_t last)
        : m_first(first)
    {
        if (last < 0 || last > kLargestArray) {
            fail();
        }
        m_bytes.resize(static_cast<std::size_t>(last - first + 1));
    }

    std::uint8_t& operator()(std::int64_t index)
    {
        if (index < m_first || index >= m_first + static_cast<std::int64_t>(m_bytes.size())) {
            fail();
        }
        return m_bytes[static_cast<std::size_t>(index - m_first)];
    }

    std::int64_t last() const { return m_first + static_cast<std::int64_t>(m_bytes.size()) - 1; }

private:
    std::int64_t m_first;
    std::vector<std::uint8_t> m_bytes;
};

// The record's own array: indexes from 1, kept by the image when the reader ends early.
class Pixels {
public:
    Pixels(Image& image, std::int64_t last)
        : m_image(image)
    {
        if (last < 0 || last > kLargestArray) {
            fail();
        }
        m_image.Pixels.assign(static_cast<std::size_t>(last), 0);
    }

    std::uint8_t& operator()(std::int64_t index)
    {
        if (index < 1 || index > static_cast<std::int64_t>(m_image.Pixels.size())) {
            fail();
        }
        return m_image.Pixels[static_cast<std::size_t>(index - 1)];
    }

private:
    Image& m_image;
};

class Reader {
public:
    explicit Reader(File file)
        : m_file(file)
    {
    }

    std::int64_t length() const { return static_cast<std::int64_t>(m_file.size()); }

    void seek(std::int64_t position)
    {
        if (position < 1) {
            fail();
        }
        m_position = position;
    }

    std::int64_t position() const { return m_position; }

    std::uint8_t byte()
    {
        const std::int64_t index = m_position;
        m_position = as32(index + 1);
        return index <= length()
                   ? std::to_integer<std::uint8_t>(m_file[static_cast<std::size_t>(index - 1)])
                   : std::uint8_t{0};
    }

    std::int64_t unsigned16(bool little)
    {
        const std::int64_t first = byte();
        const std::int64_t second = byte();
        return little ? second * 256 + first : first * 256 + second;
    }

    std::int64_t signed16(bool little)
    {
        const std::int64_t value = unsigned16(little);
        return value > 32767 ? value - 65536 : value;
    }

    std::int64_t signed32(bool little)
    {
        const std::int64_t first = unsigned16(little);
        const std::int64_t second = unsigned16(little);
        const std::int64_t value = little ? second * 65536 + first : first * 65536 + second;
        return value > 2147483647 ? value - 4294967296 : value;
    }

    std::string four()
    {
        std::string letters;
        for (int i = 0; i < 4; ++i) {
            letters += static_cast<char>(byte());
        }
        return letters;
    }

private:
    File m_file;
    std::int64_t m_position = 1;
};

// Runs a reader; whatever fails inside ends it and nothing else.
template<typename Body> bool runs(Body body)
{
    try {
        body();
    } catch (const std::range_error&) {
        return false;
    }
    return true;
}

void pcxOnePlane(Array& data, std::int64_t scanLine, Image& image)
{
    const std::int64_t width = image.Width;
    Pixels pixels(image, as32(std::int64_t{image.Height} * width));
    std::int64_t index = 0;
    for (std::int64_t row = 0; row < image.Height; ++row) {
        std::int64_t x = 0;
        while (x < scanLine) {
            const std::uint8_t byte = data(index);
            if (byte < 0xC0) {
                pixels(width * row + x + 1) = byte;
                x += 1;
                index += 1;
                continue;
            }
            std::int64_t count = byte % 64;
            if (count + x > scanLine) {
                count = width - x;
            }
            for (std::int64_t i = 0; i < count; ++i) {
                pixels(width * row + x + i + 1) = data(index + 1);
            }
            x += count;
            index += 2;
        }
    }
}

void pcxPlanes(Array& data, std::int64_t bytesPerLine, Image& image)
{
    const std::int64_t area = as32(as32(std::int64_t{image.Height} * image.Width) * 3);
    Pixels pixels(image, area);
    Array work(0, area);
    std::int64_t out = 0;
    std::int64_t index = 0;
    while (index <= data.last()) {
        const std::uint8_t byte = data(index);
        if (byte < 0xC0) {
            work(out++) = byte;
            index += 1;
            continue;
        }
        for (int i = 0; i < byte % 64; ++i) {
            work(out++) = data(index + 1);
        }
        index += 2;
    }
    std::int64_t k = 1;
    for (std::int64_t y = 0; y < image.Height; ++y) {
        for (std::int64_t x = 0; x < image.Width; ++x) {
            const std::int64_t start = bytesPerLine * y * 3;
            pixels(k) = work(start + as16(2 * bytesPerLine) + x);
            pixels(k + 1) = work(start + bytesPerLine + x);
            pixels(k + 2) = work(start + x);
            k += 3;
        }
    }
}

void pcx(File file, Image& image)
{
    Reader reader(file);
    if (reader.byte() != 10) {
        return;
    }
    reader.seek(5);
    const std::int64_t xMin = reader.signed16(true);
    const std::int64_t yMin = reader.signed16(true);
    const std::int64_t xMax = reader.signed16(true);
    const std::int64_t yMax = reader.signed16(true);
    reader.seek(66);
    const std::int64_t planes = reader.byte();
    const std::int64_t bytesPerLine = reader.signed16(true);
    image.Width = static_cast<std::int32_t>(as16(as16(xMax - xMin) + 1));
    image.Height = static_cast<std::int32_t>(as16(as16(yMax - yMin) + 1));
    if (planes * 8 > 255) {
        fail();
    }
    image.BitDepth = static_cast<std::uint8_t>(planes * 8);
    image.Palette.clear();
    Array data(0, reader.length() - 128);
    reader.seek(129);
    for (std::int64_t i = 0; i < data.last(); ++i) {
        data(i) = reader.byte();
    }
    if (image.BitDepth == 8) {
        reader.seek(reader.length() - 768);
        if (reader.byte() != 12) {
            return;
        }
        image.Palette.resize(256);
        for (auto& entry : image.Palette) {
            entry.red = reader.byte();
            entry.green = reader.byte();
            entry.blue = reader.byte();
        }
    }
    const std::int64_t scanLine = as16(planes * bytesPerLine);
    if (image.BitDepth == 8) {
        pcxOnePlane(data, scanLine, image);
    } else {
        pcxPlanes(data, bytesPerLine, image);
    }
}

void tga(File file, Image& image)
{
    Reader reader(file);
    reader.seek(3);
    const int type = reader.byte();
    reader.seek(13);
    const std::int64_t width = reader.signed16(true);
    const std::int64_t height = reader.signed16(true);
    const int depth = reader.byte();
    if (type != 2 || depth != 24) {
        return;
    }
    image.Width = static_cast<std::int32_t>(width);
    image.Height = static_cast<std::int32_t>(height);
    image.BitDepth = 24;
    image.Palette.clear();
    Pixels pixels(image, as32(width * 3 * height));
    Array row(1, width * 3);
    reader.seek(19);
    for (std::int64_t y = height - 1; y >= 0; --y) {
        for (std::int64_t i = 1; i <= width * 3; ++i) {
            row(i) = reader.byte();
        }
        for (std::int64_t i = 1; i <= width * 3; ++i) {
            pixels(y * width * 3 + i) = row(i);
        }
    }
}

void tiff(File file, Image& image)
{
    Reader reader(file);
    const std::int64_t order = reader.unsigned16(true);
    if (order != 0x4949 && order != 0x4D4D) {
        return;
    }
    const bool little = order == 0x4949;
    if (reader.unsigned16(little) != 42) {
        return;
    }
    reader.signed32(little);
    std::int64_t width = 0;
    std::int64_t height = 0;
    std::int64_t strip = 0;
    bool decodable = true;
    for (std::int64_t left = reader.unsigned16(little); left > 0; --left) {
        const std::int64_t tag = reader.unsigned16(little);
        const std::int64_t type = reader.unsigned16(little);
        std::int64_t count = 0;
        std::int64_t value = 0;
        if (type == 4) {
            count = as16(reader.signed32(little));
            value = as16(reader.signed32(little));
        } else {
            count = as16(reader.unsigned16(little));
            reader.unsigned16(little);
            value = as16(reader.unsigned16(little));
            reader.unsigned16(little);
        }
        if ((tag == 255 || tag == 259 || tag == 284) && value != 1) {
            return;
        }
        if (tag == 258 && count != 3) {
            return;
        }
        if (tag == 256) {
            width = value;
        } else if (tag == 257) {
            height = value;
        } else if (tag == 262 && value != 1 && value != 2 && value != 3) {
            decodable = false;
        } else if (tag == 273) {
            strip = value;
        }
    }
    if (width == 0 || height == 0) {
        return;
    }
    image.BitDepth = 24;
    image.Width = static_cast<std::int32_t>(width);
    image.Height = static_cast<std::int32_t>(height);
    image.Palette.clear();
    Pixels pixels(image, as32(width * 3 * height));
    Array row(0, width * 3);
    if (!decodable) {
        return;
    }
    std::int64_t position = strip + width - 1;
    std::int64_t out = 1;
    for (std::int64_t y = 0; y < height; ++y) {
        reader.seek(position);
        for (std::int64_t i = 0; i <= width * 3; ++i) {
            row(i) = reader.byte();
        }
        position += width * 3;
        for (std::int64_t x = 0; x < width; ++x) {
            const std::uint8_t red = row(3 * x);
            const std::uint8_t green = row(3 * x + 1);
            const std::uint8_t blue = row(3 * x + 2);
            pixels(out++) = blue;
            pixels(out++) = green;
            pixels(out++) = red;
        }
    }
}

struct PsdHeader {
    std::int64_t channels = 0;
    std::int64_t rows = 0;
    std::int64_t columns = 0;
    std::int64_t compression = 0;
};

// The work array has indexes from 1; offsets count from its first byte.
void psdPlanes(Reader& reader, const PsdHeader& header, Array& work)
{
    constexpr std::array kTargets{2, 1, 0, 3};
    constexpr std::array kDefaults{0, 0, 0, 255};
    const std::int64_t area = header.rows * header.columns;
    Array data(0, reader.length() - reader.position());
    for (std::int64_t i = 0; i <= data.last(); ++i) {
        data(i) = reader.byte();
    }
    const auto fillDefault = [&](int slot) {
        for (std::int64_t i = 0; i < area; ++i) {
            work(4 * i + slot + 1) = static_cast<std::uint8_t>(kDefaults.at(std::size_t(slot)));
        }
    };
    std::int64_t position = 0;
    if (header.compression == 0) {
        for (const int slot : kTargets) {
            if (slot > header.channels) {
                fillDefault(slot);
                continue;
            }
            for (std::int64_t i = 0; i < area; ++i) {
                work(4 * i + slot + 1) = data(position++);
            }
        }
        return;
    }
    position = as32(as32(header.channels * header.rows) * 2);
    for (const int slot : kTargets) {
        if (slot >= header.channels) {
            fillDefault(slot);
            continue;
        }
        std::int64_t pixel = 0;
        while (pixel < area) {
            const int head = data(position++);
            if (head == 128) {
                continue;
            }
            if (head < 128) {
                for (int i = 0; i <= head; ++i) {
                    work(4 * pixel + slot + 1) = data(position++);
                    ++pixel;
                }
            } else {
                const std::uint8_t value = data(position++);
                for (int i = 0; i < 257 - head; ++i) {
                    work(4 * pixel + slot + 1) = value;
                    ++pixel;
                }
            }
        }
    }
}

void psd(File file, Image& image)
{
    Reader reader(file);
    PsdHeader header;
    if (reader.four() != "8BPS" || reader.signed16(false) != 1) {
        return;
    }
    reader.seek(13);
    header.channels = reader.signed16(false);
    header.rows = reader.signed32(false);
    header.columns = reader.signed32(false);
    if (header.channels < 0 || header.channels > 16 || reader.signed16(false) != 8 ||
        reader.signed16(false) != 3) {
        return;
    }
    for (int section = 0; section < 3; ++section) {
        const std::int64_t length = reader.signed32(false);
        reader.seek(as32(reader.position() + length));
    }
    header.compression = reader.signed16(false);
    if (header.compression > 1) {
        return;
    }
    const std::int64_t area = as32(header.rows * header.columns);
    Array work(1, as32(1 + as32(area * 4)));
    if (!runs([&] { psdPlanes(reader, header, work); })) {
        image.messages.push_back("Error Open!");
    }
    image.BitDepth = 24;
    image.Width = static_cast<std::int32_t>(header.columns);
    image.Height = static_cast<std::int32_t>(header.rows);
    image.Palette.clear();
    Pixels pixels(image, area * 3);
    std::int64_t out = 1;
    std::int64_t pixel = 0;
    for (std::int64_t y = 0; y < header.rows; ++y) {
        for (std::int64_t x = 0; x < header.columns; ++x) {
            for (int slot = 0; slot < 3; ++slot) {
                pixels(out++) = work(4 * pixel + slot + 1);
            }
            ++pixel;
        }
        if (header.rows > 1) {
            image.fractions.push_back(static_cast<double>(y) /
                                      static_cast<double>(header.rows - 1));
        }
    }
}

// Moves behind the eight bytes of a chunk's head; false when the tag doesn't stand there.
bool findTag(Reader& reader, const std::string& tag, std::int64_t first, std::int64_t last)
{
    for (std::int64_t position = first; position <= last; ++position) {
        reader.seek(position);
        if (reader.four() == tag) {
            reader.seek(position + 8);
            return true;
        }
    }
    return false;
}

void iff(File file, Image& image)
{
    Reader reader(file);
    if (reader.four() != "FORM") {
        return;
    }
    findTag(reader, "BMHD", 9, reader.length());
    const auto size = [&] {
        const std::int64_t high = as16(std::int64_t{reader.byte()} * 256);
        return high + reader.byte();
    };
    const std::int64_t width = size();
    const std::int64_t height = size();
    reader.seek(reader.position() + 4);
    const int planes = reader.byte();
    reader.byte();
    const int compression = reader.byte();
    if (compression != 1 || planes != 8) {
        return;
    }
    image.Width = static_cast<std::int32_t>(width);
    image.Height = static_cast<std::int32_t>(height);
    image.BitDepth = 8;
    image.Palette.assign(256, {});
    reader.seek(1);
    findTag(reader, "CMAP", 1, reader.length());
    for (auto& entry : image.Palette) {
        entry.red = reader.byte();
        entry.green = reader.byte();
        entry.blue = reader.byte();
    }
    findTag(reader, "BODY", reader.position(), reader.length() - 4);
    const std::int64_t left = reader.length() - reader.position() + 1;
    Array buffer(1, left < 0 ? 0 : left);
    for (std::int64_t i = 1; i <= buffer.last(); ++i) {
        buffer(i) = reader.byte();
    }
    if (width * height > kLargestArray) {
        image.Pixels.clear(); // those of the picture before don't fit the new sizes
    }
    Pixels pixels(image, width * height);
    std::int64_t in = 1;
    std::int64_t out = 1;
    while (in < buffer.last()) {
        const int head = buffer(in++);
        if (head <= 128) {
            for (int i = 0; i <= head; ++i) {
                pixels(out++) = buffer(in++);
            }
        } else {
            const std::uint8_t value = buffer(in++);
            for (int i = 0; i < 257 - head; ++i) {
                pixels(out++) = value;
            }
        }
    }
}

} // namespace

void readPcx(File file, Image& image)
{
    runs([&] { pcx(file, image); });
}

void readTga(File file, Image& image)
{
    runs([&] { tga(file, image); });
}

void readTiff(File file, Image& image)
{
    runs([&] { tiff(file, image); });
}

void readPsd(File file, Image& image)
{
    runs([&] { psd(file, image); });
}

void readIff(File file, Image& image)
{
    runs([&] { iff(file, image); });
}

void read(File file, Image& image)
{
    Reader reader(file);
    const auto byteAt = [&](std::int64_t offset) {
        reader.seek(offset + 1);
        return reader.byte();
    };
    const auto startsWith = [&](const std::string& letters) {
        reader.seek(1);
        return reader.four().substr(0, letters.size()) == letters;
    };
    if (startsWith("8BPS")) {
        readPsd(file, image);
    } else if (byteAt(2) == 2 && byteAt(16) == 24) {
        readTga(file, image);
    } else if (startsWith("II") || startsWith("MM")) {
        readTiff(file, image);
    } else if (byteAt(0) == 10) {
        readPcx(file, image);
    } else if (startsWith("FORM")) {
        readIff(file, image);
    }
}

} // namespace literal
