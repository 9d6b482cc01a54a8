#include "formats/tga_reader.h"

#include "formats/array_size.h"
#include "formats/pixel_order.h"

#include <algorithm>

namespace formats {

namespace {

constexpr std::size_t kHeaderBytes = 18;
constexpr std::uint8_t kTrueColour = 2;
constexpr std::uint8_t kBitsPerPixel = 24;

// Copies the rows of the file, as far as they are there, to the picture's rows from below.
void copyRows(std::span<const std::uint8_t> rows, std::size_t rowBytes, ByteBuffer& target)
{
    std::span<std::uint8_t> pixels(target.data(), target.size());
    while (!rows.empty() && !pixels.empty()) {
        const std::size_t count = std::min(rowBytes, rows.size());
        copyBytes(rows.first(count), pixels.last(rowBytes).first(count), target.memory());
        rows = rows.subspan(count);
        pixels = pixels.first(pixels.size() - rowBytes);
    }
}

} // namespace

bool isTga(const base::ByteReader& file)
{
    return file.byteAt(2) == kTrueColour && file.byteAt(16) == kBitsPerPixel;
}

bool readTga(std::span<const std::byte> file, RawImage& image)
{
    const base::ByteReader reader(file);
    if (!isTga(reader)) {
        return false;
    }
    image.Width = static_cast<std::int16_t>(reader.little16At(12));
    image.Height = static_cast<std::int16_t>(reader.little16At(14));
    image.BitDepth = kBitsPerPixel;
    image.Palette.clear();
    const auto size = arraySize(std::int64_t{image.Width} * 3 * image.Height);
    if (!size) {
        return false;
    }
    const auto rows = reader.from(kHeaderBytes);
    const bool complete = image.Width > 0 && rows.size() >= *size;
    const bool sized =
        complete ? image.Pixels.resizeForOverwrite(*size) : image.Pixels.resizeZeroed(*size);
    if (sized && image.Width > 0) {
        copyRows(asNumbers(rows), static_cast<std::size_t>(image.Width) * 3, image.Pixels);
    }
    return sized;
}

} // namespace formats
