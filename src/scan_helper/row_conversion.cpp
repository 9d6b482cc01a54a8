#include "scan_helper/row_conversion.h"

#include <cstdint>
#include <cstring>
#include <type_traits>

namespace scan_helper {

namespace {

using platform::ScanFailure;

// Rows of one bit a sample hold eight pixels' worth of each sample in turn.
std::size_t neededBytes(const FrameShape& shape)
{
    const auto samples = std::size_t(shape.samples);
    return shape.depth == 1 ? (shape.width + 7) / 8 * samples
                            : shape.width * samples * std::size_t(shape.depth / 8);
}

// A driver may say any number, which an enumeration mustn't be read from.
bool setChannels(FrameShape& shape, const SANE_Frame& told)
{
    std::underlying_type_t<SANE_Frame> format = 0;
    std::memcpy(&format, &told, sizeof format);
    if (format < SANE_FRAME_GRAY || format > SANE_FRAME_BLUE) {
        return false;
    }
    shape.channels = format == SANE_FRAME_GRAY ? 1 : 3;
    shape.samples = format == SANE_FRAME_RGB ? 3 : 1;
    shape.channel = format >= SANE_FRAME_RED ? int(format - SANE_FRAME_RED) : 0;
    return true;
}

std::byte oneBit(const FrameShape& shape, const std::byte* row, std::size_t x, int sample)
{
    const std::size_t group = x / 8 * std::size_t(shape.samples) + std::size_t(sample);
    const bool isSet = (row[group] >> (7 - x % 8) & std::byte(1)) != std::byte(0);
    const bool isLight = shape.channels == 1 ? !isSet : isSet;
    return isLight ? std::byte(0xFF) : std::byte(0);
}

std::byte sixteenBits(const std::byte* sample)
{
    std::uint16_t value = 0;
    std::memcpy(&value, sample, sizeof value);
    return std::byte((std::uint32_t(value) * 255 + 32767) / 65535);
}

std::byte sampleAt(const FrameShape& shape, const std::byte* row, std::size_t x, int sample)
{
    const std::size_t index = x * std::size_t(shape.samples) + std::size_t(sample);
    return shape.depth == 1    ? oneBit(shape, row, x, sample)
           : shape.depth == 16 ? sixteenBits(row + 2 * index)
                               : row[index];
}

} // namespace

std::variant<FrameShape, ScanFailure> checkedShape(const SANE_Parameters& parameters)
{
    FrameShape shape;
    shape.depth = parameters.depth;
    const bool isKnownDepth = shape.depth == 1 || shape.depth == 8 || shape.depth == 16;
    if (!isKnownDepth || !setChannels(shape, parameters.format)) {
        return ScanFailure::Unsupported;
    }
    if (parameters.pixels_per_line <= 0 || parameters.bytes_per_line <= 0) {
        return ScanFailure::Nonsense;
    }
    shape.width = std::size_t(parameters.pixels_per_line);
    shape.rowBytes = std::size_t(parameters.bytes_per_line);
    shape.rows = parameters.lines > 0 ? std::size_t(parameters.lines) : 0;
    shape.isLast = parameters.last_frame != SANE_FALSE;
    const std::size_t most = platform::mostScanRows(shape.width);
    if (most == 0 || shape.rows > most || shape.rowBytes > FrameShape::kLongestRow) {
        return ScanFailure::TooLarge;
    }
    if (shape.rowBytes < neededBytes(shape)) {
        return ScanFailure::Nonsense;
    }
    return shape;
}

void convertRow(const FrameShape& shape, std::span<const std::byte> scanned,
                std::span<std::byte> picture)
{
    std::byte* pixel = picture.data() + shape.channel;
    for (std::size_t x = 0; x < shape.width; ++x, pixel += shape.channels) {
        for (int sample = 0; sample < shape.samples; ++sample) {
            pixel[sample] = sampleAt(shape, scanned.data(), x, sample);
        }
    }
}

} // namespace scan_helper
