#include "formats/pcx_reader.h"

#include "base/numbers.h"
#include "formats/array_size.h"
#include "formats/pixel_order.h"
#include "formats/run_length.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

namespace formats {

namespace {

using Stream = RunStream<PcxRuns>;

constexpr std::uint8_t kManufacturer = 10;
constexpr std::size_t kHeaderBytes = 128;
constexpr std::size_t kPaletteBytes = std::size_t{3} * 256;
constexpr std::uint8_t kPaletteMarker = 12;

// Lines are unpacked by as many as fill this, so that a plane stays in the nearest cache.
constexpr std::size_t kBatchBytes = std::size_t{64} << 10U;

struct Header {
    std::int16_t xMin = 0;
    std::int16_t yMin = 0;
    std::int16_t xMax = 0;
    std::int16_t yMax = 0;
    std::uint8_t planes = 0;
    std::int16_t bytesPerLine = 0;
};

std::int16_t signed16(std::uint16_t bits)
{
    return static_cast<std::int16_t>(bits);
}

Header readHeader(const base::ByteReader& file)
{
    Header header;
    header.xMin = signed16(file.little16At(4));
    header.yMin = signed16(file.little16At(6));
    header.xMax = signed16(file.little16At(8));
    header.yMax = signed16(file.little16At(10));
    header.planes = file.byteAt(65);
    header.bytesPerLine = signed16(file.little16At(66));
    return header;
}

// Both ends included; nothing when either step leaves 16 bits.
std::optional<std::int16_t> extent(std::int16_t first, std::int16_t last)
{
    const auto distance = base::narrow16(std::int64_t{last} - first);
    return distance ? base::narrow16(std::int64_t{*distance} + 1) : std::nullopt;
}

// The fields that change even if the file is refused afterwards. False at the first that fails.
bool applyHeader(const Header& header, RawImage& image)
{
    const auto width = extent(header.xMin, header.xMax);
    if (!width) {
        return false;
    }
    image.Width = *width;
    const auto height = extent(header.yMin, header.yMax);
    if (!height) {
        return false;
    }
    image.Height = *height;
    const unsigned depth = header.planes * 8U;
    if (depth > std::numeric_limits<std::uint8_t>::max()) {
        return false;
    }
    image.BitDepth = static_cast<std::uint8_t>(depth);
    image.Palette.clear();
    return true;
}

// The palette stands in the last 768 bytes, behind a marker.
bool readPalette(const base::ByteReader& file, RawImage& image)
{
    if (file.size() <= kPaletteBytes) {
        return false;
    }
    const std::size_t start = file.size() - kPaletteBytes;
    if (file.byteAt(start - 1) != kPaletteMarker) {
        return false;
    }
    image.Palette.resize(256);
    for (std::size_t i = 0; i < image.Palette.size(); ++i) {
        image.Palette[i].red = file.byteAt(start + 3 * i);
        image.Palette[i].green = file.byteAt(start + 3 * i + 1);
        image.Palette[i].blue = file.byteAt(start + 3 * i + 2);
    }
    return true;
}

// Unpacks a one-plane picture line by line. A line of the file may be longer than the picture is
// wide: its padding then lands at the start of the next row, which writes over it.
class LineDecoder {
public:
    LineDecoder(std::span<const std::byte> data, std::int64_t width, std::int64_t bytesPerLine,
                std::span<std::uint8_t> pixels)
        : m_data(data)
        , m_width(width)
        , m_bytesPerLine(bytesPerLine)
        , m_pixels(pixels)
    {
    }

    // False when the data or the picture ended inside the row.
    bool decodeRow(std::int64_t row);

    // Behind the last byte that any row has written.
    [[nodiscard]] std::size_t written() const { return m_written; }

private:
    bool decodePacket();
    bool write(std::int64_t count, std::uint8_t value);
    void decodeInBulk();

    std::span<const std::byte> m_data;
    std::int64_t m_width;
    std::int64_t m_bytesPerLine;
    std::span<std::uint8_t> m_pixels;
    std::size_t m_position = 0;
    std::int64_t m_rowStart = 0;
    std::int64_t m_column = 0;
    std::size_t m_written = 0;
};

bool LineDecoder::decodeRow(std::int64_t row)
{
    m_rowStart = row * m_width;
    m_column = 0;
    // The bulk loop scribbles behind what it writes, so it has to stay clear of the padding that
    // the row before has left.
    const std::int64_t padding = std::max<std::int64_t>(0, m_bytesPerLine - m_width);
    bool bulkDone = false;
    while (m_column < m_bytesPerLine) {
        if (!bulkDone && m_column >= padding) {
            decodeInBulk();
            bulkDone = true;
        } else if (!decodePacket()) {
            return false;
        }
    }
    return true;
}

void LineDecoder::decodeInBulk()
{
    const std::int64_t end = m_rowStart + std::min(m_bytesPerLine, m_width);
    const std::int64_t start = m_rowStart + m_column;
    if (start >= end || end > static_cast<std::int64_t>(m_pixels.size())) {
        return;
    }
    const auto out =
        m_pixels.subspan(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start));
    const std::size_t count = PcxRuns::unpack(m_data, m_position, out);
    m_column += static_cast<std::int64_t>(count);
    m_written = std::max(m_written, static_cast<std::size_t>(start) + count);
}

bool LineDecoder::decodePacket()
{
    Packet packet;
    if (!PcxRuns::open(m_data, m_position, packet)) {
        return false;
    }
    auto count = static_cast<std::int64_t>(packet.count);
    if (m_column + count > m_bytesPerLine) {
        count = m_width - m_column;
    }
    if (!write(count, packet.value)) {
        return false;
    }
    m_column += count;
    return true;
}

// Repeats the value from the column on, until the picture ends. A negative count writes nothing.
bool LineDecoder::write(std::int64_t count, std::uint8_t value)
{
    for (std::int64_t i = 0; i < count; ++i) {
        const auto index = static_cast<std::size_t>(m_rowStart + m_column + i);
        if (index >= m_pixels.size()) {
            return false;
        }
        m_pixels[index] = value;
        m_written = std::max(m_written, index + 1);
    }
    return true;
}

bool decodeOnePlane(std::span<const std::byte> data, std::int64_t bytesPerLine, RawImage& image)
{
    const auto size = arraySize(std::int64_t{image.Height} * image.Width);
    if (!size) {
        return false;
    }
    const bool everyByteWritten = bytesPerLine >= image.Width;
    if (!(everyByteWritten ? image.Pixels.resizeForOverwrite(*size)
                           : image.Pixels.resizeZeroed(*size))) {
        return false;
    }
    LineDecoder decoder(data, image.Width, bytesPerLine, {image.Pixels.data(), *size});
    std::int32_t row = 0;
    while (row < image.Height && decoder.decodeRow(row)) {
        ++row;
    }
    if (row < image.Height || image.Height <= 0) {
        image.Pixels.zeroFrom(decoder.written());
    }
    return true;
}

// Three planes whose lines are as long as the picture is wide: each batch of lines is unpacked and
// merged while it is in the cache. A stream that holds more than the picture and one byte leaves
// the picture black.
void decodePackedPlanes(std::span<const std::byte> data, RawImage& image)
{
    const auto width = static_cast<std::size_t>(image.Width);
    const std::size_t lineBytes = 3 * width;
    const std::span<std::uint8_t> pixels(image.Pixels.data(), image.Pixels.size());
    std::vector<std::uint8_t> lines(std::max<std::size_t>(1, kBatchBytes / lineBytes) * lineBytes);
    Stream stream(data);
    std::size_t done = 0;
    while (done < pixels.size()) {
        const std::size_t batchBytes = std::min(lines.size(), pixels.size() - done);
        const std::size_t count = stream.fill(std::span(lines).first(batchBytes));
        std::fill(lines.begin() + static_cast<std::ptrdiff_t>(count), lines.end(), std::uint8_t{0});
        const std::span<const std::uint8_t> planes(lines);
        for (std::size_t start = 0; start < batchBytes; start += lineBytes) {
            interleavePlanes(planes.subspan(start + 2 * width, width),
                             planes.subspan(start + width, width), planes.subspan(start, width),
                             pixels.subspan(done + start, lineBytes), image.Pixels.memory());
        }
        done += batchBytes;
        if (count < batchBytes) {
            image.Pixels.zeroFrom(done);
            return;
        }
    }
    if (stream.skip(2) > 1) {
        image.Pixels.zeroFrom(0);
    }
}

// Three planes with any other line length: the lines are looked up in the unpacked stream, until
// one of them reaches outside it. Only the first count bytes of the stream aren't zero.
void mergePlanes(std::span<const std::uint8_t> work, std::size_t count, std::int64_t bytesPerLine,
                 RawImage& image)
{
    if (bytesPerLine < 0 || image.Width <= 0 || !base::narrow16(2 * bytesPerLine)) {
        return;
    }
    const auto width = static_cast<std::size_t>(image.Width);
    const auto lineBytes = static_cast<std::size_t>(bytesPerLine);
    const std::span<std::uint8_t> pixels(image.Pixels.data(), image.Pixels.size());
    for (std::size_t target = 0, red = 0; target < pixels.size() && red < count;
         target += 3 * width, red += 3 * lineBytes) {
        const std::size_t blue = red + 2 * lineBytes;
        const std::size_t columns = std::min(width, work.size() - std::min(work.size(), blue));
        if (columns == 0) {
            return;
        }
        interleavePlanes(work.subspan(blue, columns), work.subspan(red + lineBytes, columns),
                         work.subspan(red, columns), pixels.subspan(target, 3 * columns),
                         image.Pixels.memory());
        if (columns < width) {
            return;
        }
    }
}

bool decodePlanes(std::span<const std::byte> data, std::int64_t bytesPerLine, RawImage& image)
{
    const auto size = arraySize(std::int64_t{image.Height} * image.Width * 3);
    if (!size) {
        return false;
    }
    const bool packed = image.Width > 0 && bytesPerLine == image.Width;
    if (packed && base::narrow16(2 * bytesPerLine)) {
        if (!image.Pixels.resizeForOverwrite(*size)) {
            return false;
        }
        decodePackedPlanes(data, image);
        return true;
    }
    ByteBuffer work;
    if (!image.Pixels.resizeZeroed(*size) || !work.resizeForOverwrite(*size + 1)) {
        return false;
    }
    Stream stream(data);
    const std::size_t count = stream.fill({work.data(), work.size()});
    work.zeroFrom(count);
    if (count < work.size() || stream.skip(1) == 0) {
        mergePlanes({work.data(), work.size()}, count, bytesPerLine, image);
    }
    return true;
}

} // namespace

bool isPcx(const base::ByteReader& file)
{
    return file.byteAt(0) == kManufacturer;
}

bool readPcx(std::span<const std::byte> file, RawImage& image)
{
    const base::ByteReader reader(file);
    if (!isPcx(reader)) {
        return false;
    }
    const Header header = readHeader(reader);
    if (!applyHeader(header, image)) {
        return false;
    }
    if (file.size() < kHeaderBytes ||
        !arraySize(static_cast<std::int64_t>(file.size() - kHeaderBytes + 1))) {
        return false;
    }
    const auto data = file.subspan(kHeaderBytes);
    const bool onePlane = image.BitDepth == 8;
    if (onePlane && !readPalette(reader, image)) {
        return false;
    }
    const auto lineBytes = base::narrow16(std::int64_t{header.planes} * header.bytesPerLine);
    if (!lineBytes) {
        return false;
    }
    return onePlane ? decodeOnePlane(data, *lineBytes, image)
                    : decodePlanes(data, header.bytesPerLine, image);
}

} // namespace formats
