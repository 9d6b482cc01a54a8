#include "platform/pictures/bmp_decoder.h"

#include "platform/pictures/bmp_rle.h"
#include "platform/pictures/large_image.h"

#include <QIODevice>
#include <algorithm>
#include <bit>
#include <cstring>
#include <memory>
#include <new>

namespace platform {

namespace {

constexpr qint64 kBufferBytes = qint64(1) << 18;
// Wide loads may read some bytes behind the last pixel of the buffer.
constexpr qint64 kSpareBytes = 8;

void expandIndices(quint32* pixels, const uchar* row, const BmpHeader& header)
{
    const unsigned depth = unsigned(header.depth);
    const unsigned mask = (1U << depth) - 1U;
    const unsigned perByte = 8U / depth;
    for (unsigned x = 0; x < unsigned(header.width); ++x) {
        const unsigned shift = 8U - depth - x % perByte * depth;
        pixels[x] = header.palette[row[x / perByte] >> shift & mask];
    }
}

void expandBytes(quint32* pixels, const uchar* row, const BmpHeader& header)
{
    std::transform(row, row + header.width, pixels,
                   [&](uchar index) { return header.palette[index]; });
}

void expand24(quint32* pixels, const uchar* row, const BmpHeader& header)
{
    for (int x = 0; x < header.width; ++x, row += 3) {
        quint32 bytes = 0;
        std::memcpy(&bytes, row, sizeof bytes);
        if constexpr (std::endian::native == std::endian::big) {
            bytes = __builtin_bswap32(bytes);
        }
        pixels[x] = 0xFF000000U | bytes;
    }
}

// One channel of a masked pixel, widened to eight bits so that all ones become 255.
struct MaskedChannel {
    quint32 mask;
    unsigned shift;
    quint32 most;

    explicit MaskedChannel(quint32 channelMask)
        : mask(channelMask)
        , shift(channelMask == 0 ? 0U : unsigned(std::countr_zero(channelMask)))
        , most(channelMask >> shift)
    {
    }

    [[nodiscard]] quint32 of(quint32 pixel) const
    {
        if (most == 0) {
            return 0;
        }
        return quint32((((pixel & mask) >> shift) * quint64(255) + most / 2) / most);
    }
};

void expandMasked(quint32* pixels, const uchar* row, const BmpHeader& header)
{
    const MaskedChannel red(header.masks[0]);
    const MaskedChannel green(header.masks[1]);
    const MaskedChannel blue(header.masks[2]);
    for (int x = 0; x < header.width; ++x) {
        quint32 pixel = row[0] | quint32(row[1]) << 8U;
        if (header.depth == 32) {
            pixel |= quint32(row[2]) << 16U | quint32(row[3]) << 24U;
        }
        row += header.depth / 8;
        pixels[x] = 0xFF000000U | red.of(pixel) << 16U | green.of(pixel) << 8U | blue.of(pixel);
    }
}

void expand32(quint32* pixels, const uchar* row, const BmpHeader& header)
{
    for (int x = 0; x < header.width; ++x, row += 4) {
        pixels[x] = 0xFF000000U | quint32(row[2]) << 16U | quint32(row[1]) << 8U | row[0];
    }
}

using Expand = void (*)(quint32* pixels, const uchar* row, const BmpHeader& header);

Expand expandFor(const BmpHeader& header)
{
    switch (header.depth) {
    case 8:
        return expandBytes;
    case 16:
        return expandMasked;
    case 24:
        return expand24;
    case 32:
        return header.masks == std::array<quint32, 3>{0xFF0000, 0xFF00, 0xFF} ? expand32
                                                                              : expandMasked;
    default:
        return expandIndices;
    }
}

quint32* rowOf(QImage& image, const BmpHeader& header, qint64 stored)
{
    const qint64 row = header.topDown ? stored : header.height - 1 - stored;
    return reinterpret_cast<quint32*>(image.scanLine(int(row)));
}

// Reads as many rows at a time as the buffer holds.
bool readPlainRows(QImage& image, QIODevice& file, const BmpHeader& header)
{
    const qint64 stride = header.stride();
    const qint64 rowsAtOnce = std::clamp<qint64>(kBufferBytes / stride, 1, header.height);
    const std::unique_ptr<uchar[]> buffer(
        new (std::nothrow) uchar[std::size_t(rowsAtOnce * stride + kSpareBytes)]());
    if (buffer == nullptr) {
        return false;
    }
    const Expand expand = expandFor(header);
    for (qint64 stored = 0; stored < header.height; stored += rowsAtOnce) {
        const qint64 rows = std::min(rowsAtOnce, header.height - stored);
        const qint64 got = file.read(reinterpret_cast<char*>(buffer.get()), rows * stride);
        // The very last row may come without its padding.
        if (got < (rows - 1) * stride + header.rowBytes()) {
            return false;
        }
        for (qint64 i = 0; i < rows; ++i) {
            expand(rowOf(image, header, stored + i), buffer.get() + i * stride, header);
        }
    }
    return true;
}

bool readRunLengthRows(QImage& image, QIODevice& file, const BmpHeader& header)
{
    image.fill(header.palette[0]);
    const QByteArray codes = file.readAll();
    return unpackBmpRle(image, codes, header);
}

} // namespace

QImage decodeBmp(QIODevice& file, const BmpHeader& header)
{
    const bool isPlain = header.coding == BmpCoding::Plain;
    const qint64 needed =
        isPlain ? header.stride() * (header.height - qint64(1)) + header.rowBytes() : 1;
    if (file.size() - header.pixelOffset < needed || !file.seek(header.pixelOffset)) {
        return {};
    }
    QImage image = unsetImage({header.width, header.height}, QImage::Format_RGB32);
    if (image.isNull()) {
        return {};
    }
    const bool read =
        isPlain ? readPlainRows(image, file, header) : readRunLengthRows(image, file, header);
    return read ? image : QImage();
}

} // namespace platform
