#include "platform/pictures/transfers.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace platform {

namespace {

constexpr quint32 kOpaque = 0xFF000000U;

using PaletteColours = std::array<quint32, 256>;

PaletteColours coloursOf(const BitmapHeader& header)
{
    PaletteColours colours{};
    for (std::size_t i = 0; i < colours.size(); ++i) {
        const BitmapHeader::Entry& entry = header.colours[i];
        colours[i] = kOpaque | quint32(entry.red) << 16U | quint32(entry.green) << 8U | entry.blue;
    }
    return colours;
}

// Five bits to eight, so that 31 becomes 255.
quint32 widened(quint32 fiveBits)
{
    return fiveBits << 3U | fiveBits >> 2U;
}

quint32 colourOf16(quint32 pixel)
{
    return kOpaque | widened(pixel >> 10U & 31U) << 16U | widened(pixel >> 5U & 31U) << 8U |
           widened(pixel & 31U);
}

void drawRow(quint32* target, const uchar* row, int width, unsigned depth,
             const PaletteColours& colours)
{
    switch (depth) {
    case 8:
        std::transform(row, row + width, target, [&](uchar index) { return colours[index]; });
        return;
    case 16:
        for (int x = 0; x < width; ++x, row += 2) {
            target[x] = colourOf16(quint32(row[0]) | quint32(row[1]) << 8U);
        }
        return;
    case 24:
        for (int x = 0; x < width; ++x, row += 3) {
            target[x] = kOpaque | quint32(row[2]) << 16U | quint32(row[1]) << 8U | quint32(row[0]);
        }
        return;
    default:
        for (int x = 0; x < width; ++x, row += 4) {
            target[x] = kOpaque | quint32(row[2]) << 16U | quint32(row[1]) << 8U | quint32(row[0]);
        }
    }
}

bool isDrawable(const BitmapHeader& header)
{
    constexpr std::array<unsigned, 4> kDepths = {8, 16, 24, 32};
    return header.width > 0 && header.height != 0 && header.compression == 0 &&
           std::find(kDepths.begin(), kDepths.end(), header.bitCount) != kDepths.end();
}

} // namespace

bool StretchDIBits(QImage& target, const BitmapHeader& header, std::span<const std::byte> bits)
{
    if (!isDrawable(header) || target.isNull() || target.depth() != 32) {
        return false;
    }
    const std::uint64_t stride = (std::uint64_t(header.width) * header.bitCount + 31U) / 32U * 4U;
    const std::int64_t height = std::abs(std::int64_t(header.height));
    const int width = std::min(header.width, target.width());
    const std::size_t rowBytes = std::size_t(width) * header.bitCount / 8U;
    const PaletteColours colours = coloursOf(header);
    std::vector<uchar> row(rowBytes);
    for (int y = 0; y < std::min<std::int64_t>(height, target.height()); ++y) {
        const std::int64_t stored = header.height < 0 ? y : height - 1 - y;
        const std::uint64_t begin = std::uint64_t(stored) * stride;
        const std::size_t present =
            begin < bits.size() ? std::min(rowBytes, bits.size() - std::size_t(begin)) : 0;
        if (present > 0) {
            std::memcpy(row.data(), bits.data() + begin, present);
        }
        std::fill(row.begin() + std::ptrdiff_t(present), row.end(), uchar(0));
        drawRow(reinterpret_cast<quint32*>(target.scanLine(y)), row.data(), width, header.bitCount,
                colours);
    }
    return true;
}

} // namespace platform
