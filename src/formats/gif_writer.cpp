#include "formats/gif_writer.h"

#include "formats/gif_lzw.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace {

using formats::GifBitmapInfo;
using formats::GifImageDescriptor;
using formats::GifScreenDescriptor;
using Bytes = std::vector<std::byte>;

constexpr std::uint32_t kHeaderSize = 40;
constexpr std::uint16_t kPixelBits = 8;
constexpr std::uint8_t kHasTable = 0x80;
constexpr std::uint8_t kInterlaced = 0x40;

struct RowPass {
    std::size_t start;
    std::size_t step;
};

constexpr std::array kPlainPasses{RowPass{0, 1}};
constexpr std::array kInterlacedPasses{RowPass{0, 8}, RowPass{4, 8}, RowPass{2, 4}, RowPass{1, 2}};

void append8(Bytes& file, unsigned value)
{
    file.push_back(static_cast<std::byte>(value));
}

void append16(Bytes& file, unsigned value)
{
    append8(file, value & 0xFFU);
    append8(file, value >> 8U);
}

void appendText(Bytes& file, std::string_view text)
{
    for (const char letter : text) {
        append8(file, static_cast<unsigned char>(letter));
    }
}

// A table in a file has the length that the bit count tells; colours not in use are black.
void appendColours(Bytes& file, const GifBitmapInfo& info)
{
    const std::size_t entries = std::size_t{1} << info.bitCount;
    const std::size_t used = info.usedColours == 0 ? entries : info.usedColours;
    for (std::size_t i = 0; i < entries; ++i) {
        const formats::GifColour colour = i < used ? info.colours[i] : formats::GifColour{};
        append8(file, colour.red);
        append8(file, colour.green);
        append8(file, colour.blue);
    }
}

bool fitsGif(std::int32_t size)
{
    return size > 0 && size <= std::numeric_limits<std::uint16_t>::max();
}

bool canEncode(const GifBitmapInfo& info, std::span<const std::byte> bits)
{
    if (info.headerSize != kHeaderSize || info.bitCount != kPixelBits || info.compression != 0) {
        return false;
    }
    if (!fitsGif(info.width) || !fitsGif(info.height)) {
        return false;
    }
    return bits.size() >= formats::gifStride(info) * static_cast<std::size_t>(info.height);
}

void appendDescriptor(Bytes& file, const GifBitmapInfo& info, const GifImageDescriptor& descriptor)
{
    append16(file, descriptor.left);
    append16(file, descriptor.top);
    append16(file, static_cast<unsigned>(info.width));
    append16(file, static_cast<unsigned>(info.height));
    append8(file, descriptor.flags);
}

void appendPixels(Bytes& file, const GifBitmapInfo& info, std::span<const std::byte> bits,
                  std::span<const RowPass> passes)
{
    const std::size_t stride = formats::gifStride(info);
    const auto width = static_cast<std::size_t>(info.width);
    const auto height = static_cast<std::size_t>(info.height);
    formats::GifLzwEncoder encoder(file);
    for (const RowPass& pass : passes) {
        for (std::size_t row = pass.start; row < height; row += pass.step) {
            encoder.add(bits.subspan((height - 1 - row) * stride, width));
        }
    }
    encoder.finish();
}

GifScreenDescriptor screenOf(const GifBitmapInfo& info)
{
    const auto sizeField = static_cast<std::uint8_t>(info.bitCount - 1);
    return {static_cast<std::uint16_t>(info.width), static_cast<std::uint16_t>(info.height),
            static_cast<std::uint8_t>(kHasTable | (sizeField * 17U))};
}

void appendHead(Bytes& file, const GifBitmapInfo& info, const GifScreenDescriptor& screen)
{
    appendText(file, "GIF87a");
    append16(file, screen.width);
    append16(file, screen.height);
    append8(file, screen.flags);
    append8(file, screen.background);
    append8(file, screen.aspect);
    appendColours(file, info);
    appendText(file, ",");
}

} // namespace

std::size_t formats::gifStride(const GifBitmapInfo& info)
{
    const std::uint64_t bits =
        std::uint64_t{info.bitCount} * static_cast<std::uint32_t>(info.width);
    return static_cast<std::size_t>((bits + 31) / 32 * 4);
}

bool EncodeGifImage(const GifBitmapInfo* bitmapInfo, std::span<const std::byte> bits, Bytes& file,
                    GifImageDescriptor imageDescriptor, const GifScreenDescriptor& screenDescriptor)
{
    if (bitmapInfo == nullptr || !canEncode(*bitmapInfo, bits)) {
        return false;
    }
    const bool ownTable =
        (imageDescriptor.flags & kHasTable) != 0 || (screenDescriptor.flags & kHasTable) == 0;
    if (ownTable) {
        imageDescriptor.flags |= kHasTable | (kPixelBits - 1);
    }
    appendDescriptor(file, *bitmapInfo, imageDescriptor);
    if (ownTable) {
        appendColours(file, *bitmapInfo);
    }
    append8(file, kPixelBits);
    const bool interlaced = (imageDescriptor.flags & kInterlaced) != 0;
    appendPixels(file, *bitmapInfo, bits,
                 interlaced ? std::span<const RowPass>(kInterlacedPasses)
                            : std::span<const RowPass>(kPlainPasses));
    return true;
}

bool WriteGifFile(const GifBitmapInfo& bitmapInfo, std::span<const std::byte> bits, Bytes& file)
{
    GifBitmapInfo info = bitmapInfo;
    info.bitCount = std::min(info.bitCount, kPixelBits);
    if (info.bitCount == 0 || bits.empty() || !fitsGif(info.width) || !fitsGif(info.height)) {
        return false;
    }
    const GifScreenDescriptor screen = screenOf(info);
    file.reserve(file.size() + bits.size() / 4);
    appendHead(file, info, screen);
    if (!EncodeGifImage(&info, bits, file, {}, screen)) {
        return false;
    }
    appendText(file, ";");
    return true;
}
