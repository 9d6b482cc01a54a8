#include "platform/pictures/bmp_header.h"

#include "base/byte_reader.h"

#include <algorithm>
#include <cstdlib>

namespace platform {

namespace {

constexpr std::size_t kFileHeadBytes = 14;
constexpr unsigned kCoreHeaderBytes = 12; // sizes of 16 bits, colours of three bytes
constexpr unsigned kInfoHeaderBytes = 40;
constexpr unsigned kLongestHeaderBytes = 124;
constexpr unsigned kMasksInHeaderBytes = 52; // from this size on, the masks belong to the header
constexpr std::size_t kMasksOffset = kFileHeadBytes + kInfoHeaderBytes;

enum Compression : unsigned { Rgb = 0, Rle8 = 1, Rle4 = 2, BitFields = 3, AlphaBitFields = 6 };

struct Layout {
    BmpHeader header;
    unsigned headerBytes = 0;
    unsigned compression = Rgb;
    unsigned coloursUsed = 0;
};

Layout readCoreLayout(const base::ByteReader& start)
{
    Layout layout;
    layout.headerBytes = kCoreHeaderBytes;
    layout.header.width = start.little16At(18);
    layout.header.height = start.little16At(20);
    layout.header.depth = start.little16At(24);
    return layout;
}

Layout readInfoLayout(const base::ByteReader& start)
{
    Layout layout;
    layout.headerBytes = start.little32At(kFileHeadBytes);
    layout.header.width = int(start.little32At(18));
    const qint64 height = qint32(start.little32At(22));
    layout.header.topDown = height < 0;
    // The lowest number has no positive counterpart and ends as a refused height.
    layout.header.height = int(std::abs(height));
    layout.header.depth = start.little16At(28);
    layout.compression = start.little32At(30);
    layout.coloursUsed = start.little32At(46);
    return layout;
}

bool hasMasks(const Layout& layout)
{
    return layout.compression == BitFields || layout.compression == AlphaBitFields;
}

bool isPossible(const Layout& layout)
{
    constexpr std::array<int, 6> kDepths = {1, 4, 8, 16, 24, 32};
    const BmpHeader& header = layout.header;
    if (header.width <= 0 || header.height <= 0 ||
        std::find(kDepths.begin(), kDepths.end(), header.depth) == kDepths.end()) {
        return false;
    }
    switch (layout.compression) {
    case Rgb:
        return true;
    case Rle8:
        return header.depth == 8;
    case Rle4:
        return header.depth == 4;
    case BitFields:
    case AlphaBitFields:
        return header.depth == 16 || header.depth == 32;
    default:
        return false;
    }
}

void readMasks(Layout& layout, const base::ByteReader& start)
{
    if (hasMasks(layout)) {
        for (std::size_t i = 0; i < 3; ++i) {
            layout.header.masks[i] = start.little32At(kMasksOffset + 4 * i);
        }
    } else if (layout.header.depth == 16) {
        layout.header.masks = {0x7C00, 0x3E0, 0x1F};
    } else {
        layout.header.masks = {0xFF0000, 0xFF00, 0xFF};
    }
}

std::size_t paletteOffset(const Layout& layout)
{
    const bool masksFollow = hasMasks(layout) && layout.headerBytes < kMasksInHeaderBytes;
    return kFileHeadBytes + layout.headerBytes + (masksFollow ? 12U : 0U);
}

// Gives the offset behind the colours.
std::size_t readPalette(Layout& layout, const base::ByteReader& start)
{
    const std::size_t entryBytes = layout.headerBytes == kCoreHeaderBytes ? 3 : 4;
    const unsigned possible = layout.header.depth <= 8 ? 1U << unsigned(layout.header.depth) : 0U;
    const unsigned count =
        layout.coloursUsed == 0 ? possible : std::min(layout.coloursUsed, possible);
    layout.header.palette.fill(0xFF000000U);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t entry = paletteOffset(layout) + i * entryBytes;
        layout.header.palette[i] = 0xFF000000U | quint32(start.byteAt(entry + 2)) << 16U |
                                   quint32(start.byteAt(entry + 1)) << 8U | start.byteAt(entry);
    }
    return paletteOffset(layout) + count * entryBytes;
}

BmpCoding codingOf(unsigned compression)
{
    switch (compression) {
    case Rle8:
        return BmpCoding::Rle8;
    case Rle4:
        return BmpCoding::Rle4;
    default:
        return BmpCoding::Plain;
    }
}

} // namespace

std::optional<BmpHeader> readBmpHeader(std::span<const std::byte> start)
{
    const base::ByteReader reader(start);
    const unsigned headerBytes = reader.little32At(kFileHeadBytes);
    if (headerBytes != kCoreHeaderBytes &&
        (headerBytes < kInfoHeaderBytes || headerBytes > kLongestHeaderBytes)) {
        return std::nullopt;
    }
    Layout layout =
        headerBytes == kCoreHeaderBytes ? readCoreLayout(reader) : readInfoLayout(reader);
    if (!isPossible(layout)) {
        return std::nullopt;
    }
    readMasks(layout, reader);
    const std::size_t paletteEnd = readPalette(layout, reader);
    layout.header.coding = codingOf(layout.compression);
    // Some writers leave the offset out.
    const qint64 told = reader.little32At(10);
    layout.header.pixelOffset = told != 0 ? told : qint64(paletteEnd);
    return layout.header;
}

} // namespace platform
