#include "metafile_helper/drawing_size.h"

#include "base/byte_reader.h"
#include "platform/pictures/metafile_answer.h"

#include <algorithm>
#include <cmath>

namespace metafile_helper {

namespace {

constexpr double kDotsAnInch = 96;
constexpr double kFrameUnitsAnInch = 2540;

std::optional<QSize> sizeOf(double width, double height)
{
    if (width <= 0 || height <= 0) {
        return std::nullopt;
    }
    return drawnSize(width, height);
}

} // namespace

std::optional<QSize> emfSize(std::span<const std::byte> file)
{
    constexpr std::size_t kBounds = 8;
    constexpr std::size_t kFrame = 24;
    const base::ByteReader reader(file);
    const auto length = [&](std::size_t rectangle, std::size_t side) {
        return double(qint32(reader.little32At(rectangle + side + 8))) -
               double(qint32(reader.little32At(rectangle + side)));
    };
    constexpr double kScale = kDotsAnInch / kFrameUnitsAnInch;
    if (const auto framed = sizeOf(length(kFrame, 0) * kScale, length(kFrame, 4) * kScale)) {
        return framed;
    }
    // Both edges of the bounds belong to the drawing.
    return sizeOf(length(kBounds, 0) + 1, length(kBounds, 4) + 1);
}

std::optional<QSize> placeableSize(std::span<const std::byte> file)
{
    constexpr unsigned kMagic = 0x9AC6CDD7;
    const base::ByteReader reader(file);
    const unsigned unitsAnInch = reader.little16At(14);
    if (reader.little32At(0) != kMagic || unitsAnInch == 0) {
        return std::nullopt;
    }
    const auto edge = [&](std::size_t at) { return double(qint16(reader.little16At(at))); };
    const double scale = kDotsAnInch / unitsAnInch;
    return sizeOf(std::abs(edge(10) - edge(6)) * scale, std::abs(edge(12) - edge(8)) * scale);
}

QSize drawnSize(double width, double height)
{
    constexpr double kLongest = platform::kLongestMetafileSide;
    const double shrink = std::min(1.0, kLongest / std::max(width, height));
    const auto side = [=](double length) {
        return int(std::clamp(std::round(length * shrink), 1.0, kLongest));
    };
    return {side(width), side(height)};
}

} // namespace metafile_helper
