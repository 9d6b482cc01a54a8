#include "formats/tiff_reader.h"

#include "base/numbers.h"
#include "formats/array_size.h"
#include "formats/pixel_order.h"

#include <algorithm>
#include <array>
#include <optional>

namespace formats {

namespace {

constexpr std::uint16_t kLittleEndian = 0x4949;
constexpr std::uint16_t kBigEndian = 0x4D4D;
constexpr std::uint16_t kMagic = 42;
constexpr std::size_t kDirectoryOffset = 8;
constexpr std::size_t kEntries = kDirectoryOffset + 2;
constexpr std::size_t kEntryBytes = 12;
constexpr std::uint16_t kLong = 4;

// Numbers in the byte order of the file.
class OrderedReader {
public:
    OrderedReader(const base::ByteReader& file, bool littleEndian)
        : m_file(file)
        , m_littleEndian(littleEndian)
    {
    }

    [[nodiscard]] std::size_t size() const { return m_file.size(); }

    [[nodiscard]] std::uint16_t wordAt(std::size_t offset) const
    {
        return m_littleEndian ? m_file.little16At(offset) : m_file.big16At(offset);
    }

    [[nodiscard]] std::int32_t signed32At(std::size_t offset) const
    {
        return static_cast<std::int32_t>(m_littleEndian ? m_file.little32At(offset)
                                                        : m_file.big32At(offset));
    }

private:
    base::ByteReader m_file;
    bool m_littleEndian;
};

struct Entry {
    std::uint16_t tag = 0;
    std::int16_t count = 0;
    std::int16_t value = 0;
};

struct Directory {
    std::int16_t width = 0;
    std::int16_t height = 0;
    std::int16_t stripOffset = 0;
    bool decodable = true;
};

// Nothing when the count or the value leaves 16 bits. A SHORT value is its first word in either
// order, but the count of a big-endian one is taken from its upper half.
std::optional<Entry> readEntry(const OrderedReader& file, std::size_t offset)
{
    const bool isLong = file.wordAt(offset + 2) == kLong;
    const auto number = [&](std::size_t at) -> std::int64_t {
        return isLong ? file.signed32At(at) : std::int64_t{file.wordAt(at)};
    };
    const auto count = base::narrow16(number(offset + 4));
    const auto value = base::narrow16(number(offset + 8));
    if (!count || !value) {
        return std::nullopt;
    }
    return Entry{file.wordAt(offset), *count, *value};
}

bool valueIsOne(const Entry& entry, Directory&)
{
    return entry.value == 1;
}

bool countIsThree(const Entry& entry, Directory&)
{
    return entry.count == 3;
}

bool keepWidth(const Entry& entry, Directory& directory)
{
    directory.width = entry.value;
    return true;
}

bool keepHeight(const Entry& entry, Directory& directory)
{
    directory.height = entry.value;
    return true;
}

bool keepStripOffset(const Entry& entry, Directory& directory)
{
    directory.stripOffset = entry.value;
    return true;
}

bool checkPhotometric(const Entry& entry, Directory& directory)
{
    directory.decodable = directory.decodable && entry.value >= 1 && entry.value <= 3;
    return true;
}

// What is done with an entry; false refuses the file. Tags that aren't here are read over.
struct TagRule {
    std::uint16_t tag;
    bool (*apply)(const Entry& entry, Directory& directory);
};

constexpr std::array kTagRules{
    TagRule{255, valueIsOne},       // old subfile type
    TagRule{256, keepWidth},        //
    TagRule{257, keepHeight},       //
    TagRule{258, countIsThree},     // bits per sample
    TagRule{259, valueIsOne},       // compression
    TagRule{262, checkPhotometric}, //
    TagRule{273, keepStripOffset},  //
    TagRule{284, valueIsOne},       // planar configuration
};

// Entries behind the file's end are all zero, and no rule stands for the tag 0.
std::optional<Directory> readDirectory(const OrderedReader& file)
{
    Directory directory;
    const std::size_t entries = file.wordAt(kDirectoryOffset);
    const std::size_t end = std::min(kEntries + entries * kEntryBytes, file.size());
    for (std::size_t offset = kEntries; offset < end; offset += kEntryBytes) {
        const auto entry = readEntry(file, offset);
        if (!entry) {
            return std::nullopt;
        }
        const auto rule =
            std::find_if(kTagRules.begin(), kTagRules.end(),
                         [&](const TagRule& candidate) { return candidate.tag == entry->tag; });
        if (rule != kTagRules.end() && !rule->apply(*entry, directory)) {
            return std::nullopt;
        }
    }
    return directory;
}

// The last pixel of a short file may lack its green and blue.
void copyPixels(std::span<const std::uint8_t> triples, ByteBuffer& pixels)
{
    const std::size_t whole = triples.size() / 3 * 3;
    reverseTriples(triples.first(whole), std::span(pixels.data(), whole), pixels.memory());
    for (std::size_t i = whole; i < triples.size(); ++i) {
        pixels[whole + 2 - (i - whole)] = triples[i];
    }
}

bool readPixels(const base::ByteReader& file, const Directory& directory, RawImage& image)
{
    const auto size = arraySize(std::int64_t{image.Width} * 3 * image.Height);
    if (!size) {
        return false;
    }
    // By design, only a width of two starts at the strip itself.
    const std::int64_t start = std::int64_t{directory.stripOffset} + directory.width - 2;
    const bool readable = directory.decodable && image.Width > 0 && start >= 0;
    const auto triples =
        readable ? asNumbers(file.slice(static_cast<std::size_t>(start), *size)) : asNumbers({});
    const bool sized = triples.size() == *size ? image.Pixels.resizeForOverwrite(*size)
                                               : image.Pixels.resizeZeroed(*size);
    if (sized) {
        copyPixels(triples, image.Pixels);
    }
    return sized;
}

} // namespace

bool isTiff(const base::ByteReader& file)
{
    const std::uint16_t order = file.little16At(0);
    return order == kLittleEndian || order == kBigEndian;
}

bool readTiff(std::span<const std::byte> file, RawImage& image)
{
    const base::ByteReader reader(file);
    if (!isTiff(reader)) {
        return false;
    }
    const OrderedReader ordered(reader, reader.little16At(0) == kLittleEndian);
    if (ordered.wordAt(2) != kMagic) {
        return false;
    }
    const auto directory = readDirectory(ordered);
    if (!directory || directory->width == 0 || directory->height == 0) {
        return false;
    }
    image.BitDepth = 24;
    image.Width = directory->width;
    image.Height = directory->height;
    image.Palette.clear();
    return readPixels(reader, *directory, image);
}

} // namespace formats
