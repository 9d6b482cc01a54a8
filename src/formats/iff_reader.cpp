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
constexpr std::uint8_t kPlanes = 8;
constexpr std::uint8_t kCompressed = 1;

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

bool unpackBody(std::span<const std::byte> body, RawImage& image)
{
    const auto size = arraySize(std::int64_t{image.Width} * image.Height);
    const auto bodySize = arraySize(static_cast<std::int64_t>(body.size()));
    if (!size || !bodySize || !image.Pixels.resizeForOverwrite(*size)) {
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
    if (!isIff(reader)) {
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
    const auto coloursStart = findChunk(file, "CMAP", 0);
    image.Palette = readColours(reader, coloursStart.value_or(file.size()));
    if (!coloursStart) {
        return false;
    }
    // A tag in the very last four bytes is not looked at.
    const auto bodyStart =
        findChunk(file.first(file.size() - 1), "BODY", *coloursStart + 3 * kColours);
    return bodyStart && unpackBody(reader.from(*bodyStart), image);
}

} // namespace formats
