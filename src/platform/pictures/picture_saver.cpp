#include "platform/pictures/picture_saver.h"

#include "platform/os/descriptor.h"
#include "platform/os/replacement_file.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>
#include <vector>

namespace platform {

namespace {

constexpr qint64 kHeaderBytes = 14 + 40;
constexpr qint64 kBufferBytes = 1 << 20;
// The file's size and offsets are 32-bit numbers.
constexpr qint64 kMaxFileBytes = 0xFFFFFFFF;

void put16(uchar* bytes, unsigned value)
{
    bytes[0] = uchar(value);
    bytes[1] = uchar(value >> 8U);
}

void put32(uchar* bytes, quint32 value)
{
    put16(bytes, value & 0xFFFFU);
    put16(bytes + 2, value >> 16U);
}

qint64 strideOf(const QImage& image)
{
    return (qint64(image.width()) * 3 + 3) / 4 * 4;
}

std::vector<uchar> headerOf(const QImage& image)
{
    const qint64 pixelBytes = strideOf(image) * image.height();
    std::vector<uchar> header(std::size_t(kHeaderBytes), 0);
    uchar* bytes = header.data();
    bytes[0] = 'B';
    bytes[1] = 'M';
    put32(bytes + 2, quint32(kHeaderBytes + pixelBytes));
    put32(bytes + 10, quint32(kHeaderBytes));
    put32(bytes + 14, 40);
    put32(bytes + 18, quint32(image.width()));
    put32(bytes + 22, quint32(image.height()));
    put16(bytes + 26, 1);
    put16(bytes + 28, 24);
    put32(bytes + 34, quint32(pixelBytes));
    return header;
}

void packRow(uchar* target, const uchar* source, int width)
{
    for (int x = 0; x < width; ++x, target += 3, source += 4) {
        quint32 pixel = 0;
        std::memcpy(&pixel, source, sizeof pixel);
        target[0] = uchar(pixel);
        target[1] = uchar(pixel >> 8U);
        target[2] = uchar(pixel >> 16U);
    }
}

bool writeBytes(ReplacementFile& file, const uchar* bytes, qint64 count)
{
    return writeAll(file.descriptor(), reinterpret_cast<const char*>(bytes), count);
}

// Bottom row first, as many rows at a time as the buffer holds.
bool writeRows(ReplacementFile& file, const QImage& image)
{
    const qint64 stride = strideOf(image);
    const qint64 rowsAtOnce = std::clamp<qint64>(kBufferBytes / stride, 1, image.height());
    const std::unique_ptr<uchar[]> buffer(new (std::nothrow)
                                              uchar[std::size_t(rowsAtOnce * stride)]());
    if (buffer == nullptr) {
        return false;
    }
    for (qint64 bottom = image.height(); bottom > 0;) {
        const qint64 rows = std::min(rowsAtOnce, bottom);
        for (qint64 i = 0; i < rows; ++i) {
            packRow(buffer.get() + i * stride, image.constScanLine(int(--bottom)), image.width());
        }
        if (!writeBytes(file, buffer.get(), rows * stride)) {
            return false;
        }
    }
    return true;
}

} // namespace

bool savePicture(const Picture& picture, const QString& path, Flush flush)
{
    const QImage image = picture.flattened();
    if (image.isNull() || kHeaderBytes + strideOf(image) * image.height() > kMaxFileBytes) {
        return false;
    }
    ReplacementFile file(path);
    return file.isOpen() && writeBytes(file, headerOf(image).data(), kHeaderBytes) &&
           writeRows(file, image) && file.commit(flush);
}

} // namespace platform
