#include "formats/iff_reader.h"

#include "base/numbers.h"
#include "formats/array_size.h"
#include "formats/run_length.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace formats {

namespace {

constexpr std::string_view kForm = "FORM";
constexpr std::size_t kChunkHead = 8;
constexpr std::size_t kColours = 256;
constexpr std::size_t kLeastSearched = 5;
constexpr std::uint8_t kPlanes = 8;
constexpr std::uint8_t kCompressed = 1;

// A larger file is refused before it is searched for its chunks, which would take seconds where
// most of it is a hole that no disk has. A picture on the screen takes four bytes a pixel of an
// array, and a body two at the most, so this is twice the longest body that can be shown; the rest
// is for the other chunks, the longest of which has 768 bytes.
constexpr std::int64_t kLargestFile = kLargestArray;

struct Header {
    std::int16_t width = 0;
    std::int16_t height = 0;
    std::uint8_t planes = 0;
    std::uint8_t compression = 0;
};

std::string_view textOf(std::span<const std::byte> file)
{
    return {reinterpret_cast<const char*>(file.data()), file.size()};
}

// Where the content of the chunk starts whose tag is the first at or behind the offset.
std::optional<std::size_t> findChunk(std::span<const std::byte> file, std::string_view tag,
                                     std::size_t from)
{
    const std::size_t found = textOf(file).find(tag, from);
    return found == std::string_view::npos ? std::nullopt : std::optional(found + kChunkHead);
}

// Nothing when a size leaves 16 bits.
std::optional<Header> readHeader(const base::ByteReader& file, std::size_t offset)
{
    const auto width = base::narrow16(file.big16At(offset));
    const auto height = base::narrow16(file.big16At(offset + 2));
    if (!width || !height) {
        return std::nullopt;
    }
    return Header{*width, *height, file.byteAt(offset + 8), file.byteAt(offset + 10)};
}

std::vector<PaletteEntry> readColours(const base::ByteReader& file, std::size_t offset)
{
    std::vector<PaletteEntry> colours(kColours);
    for (std::size_t i = 0; i < kColours; ++i) {
        colours[i].red = file.byteAt(offset + 3 * i);
        colours[i].green = file.byteAt(offset + 3 * i + 1);
        colours[i].blue = file.byteAt(offset + 3 * i + 2);
    }
    return colours;
}

// Where the body's content starts. The search looks at no tag in the very last four bytes, and when
// it fails, only the file's last byte is left behind it. Where nothing was left to search, that
// little is the body.
std::size_t findBody(std::span<const std::byte> file, std::size_t from)
{
    if (from + kLeastSearched > file.size()) {
        return from;
    }
    const std::size_t last = file.size() - 1;
    return findChunk(file.first(last), "BODY", from).value_or(last);
}

bool unpackBody(std::span<const std::byte> body, RawImage& image)
{
    const auto size = arraySize(std::int64_t{image.Width} * image.Height);
    if (!size) {
        image.Pixels.clear(); // those of the picture before don't fit the new sizes
        return false;
    }
    if (!image.Pixels.resizeForOverwrite(*size)) {
        return false;
    }
    RunStream<ByteRun> stream(body);
    image.Pixels.zeroFrom(stream.fill({image.Pixels.data(), image.Pixels.size()}));
    return true;
}

} // namespace

bool isIff(const base::ByteReader& file)
{
    return textOf(file.slice(0, kForm.size())) == kForm;
}

bool readIff(std::span<const std::byte> file, RawImage& image)
{
    const base::ByteReader reader(file);
    if (!isIff(reader) || static_cast<std::int64_t>(file.size()) > kLargestFile) {
        return false;
    }
    const auto headerStart = findChunk(file, "BMHD", kChunkHead);
    const auto header = headerStart ? readHeader(reader, *headerStart) : std::nullopt;
    if (!header || header->compression != kCompressed || header->planes != kPlanes) {
        return false;
    }
    image.Width = header->width;
    image.Height = header->height;
    image.BitDepth = 8;
    const std::size_t coloursStart = findChunk(file, "CMAP", 0).value_or(file.size());
    image.Palette = readColours(reader, coloursStart);
    return unpackBody(reader.from(findBody(file, coloursStart + 3 * kColours)), image);
}

} // namespace formats
