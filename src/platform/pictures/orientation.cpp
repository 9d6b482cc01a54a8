#include "platform/pictures/orientation.h"

#include "base/byte_reader.h"

#include <algorithm>

namespace platform {

namespace {

// Numbers of a TIFF structure, in the byte order that its head tells.
class TiffReader {
public:
    explicit TiffReader(std::span<const std::byte> bytes)
        : m_bytes(bytes)
        , m_bigEndian(m_bytes.big16At(0) == kBigEndianMark)
    {
    }

    [[nodiscard]] bool isTiff() const
    {
        return (m_bigEndian || m_bytes.big16At(0) == kLittleEndianMark) && number16At(2) == 42;
    }
    [[nodiscard]] unsigned number16At(std::size_t at) const
    {
        return m_bigEndian ? m_bytes.big16At(at) : m_bytes.little16At(at);
    }
    [[nodiscard]] std::size_t number32At(std::size_t at) const
    {
        return m_bigEndian ? m_bytes.big32At(at) : m_bytes.little32At(at);
    }

private:
    static constexpr unsigned kBigEndianMark = 0x4D4D;
    static constexpr unsigned kLittleEndianMark = 0x4949;

    base::ByteReader m_bytes;
    bool m_bigEndian;
};

int orientationIn(const TiffReader& tiff)
{
    constexpr unsigned kOrientationTag = 0x0112;
    constexpr unsigned kShortType = 3;
    constexpr std::size_t kEntryBytes = 12;
    const std::size_t directory = tiff.number32At(4);
    const unsigned entries = tiff.number16At(directory);
    for (unsigned i = 0; i < entries; ++i) {
        const std::size_t entry = directory + 2 + i * kEntryBytes;
        if (tiff.number16At(entry) == kOrientationTag && tiff.number16At(entry + 2) == kShortType) {
            return int(tiff.number16At(entry + 8));
        }
    }
    return 1;
}

} // namespace

Orientation Orientation::fromExif(std::span<const std::byte> segment)
{
    constexpr std::size_t kHeadBytes = 6;
    const base::ByteReader head(segment);
    if (head.big32At(0) != 0x45786966 || head.big16At(4) != 0) {
        return {};
    }
    const TiffReader tiff(head.from(kHeadBytes));
    const int number = tiff.isTiff() ? orientationIn(tiff) : 1;
    return Orientation(number >= 1 && number <= 8 ? number : 1);
}

QSize Orientation::applied(QSize size) const
{
    return exchangesSides() ? size.transposed() : size;
}

void Orientation::placeRows(QImage& shown, const quint32* rows, int firstRow, int rowCount) const
{
    const QSize stored = applied(shown.size());
    const qsizetype width = stored.width();
    const qsizetype line = shown.bytesPerLine() / 4;
    const bool lastRowFirst = m_number == 3 || m_number == 4 || m_number == 6 || m_number == 7;
    const bool lastColumnFirst = m_number == 2 || m_number == 3 || m_number == 7 || m_number == 8;
    const qsizetype rowStep = exchangesSides() ? 1 : line;
    const qsizetype columnStep = exchangesSides() ? line : 1;
    const qsizetype row = lastRowFirst ? stored.height() - 1 - firstRow : firstRow;
    const qsizetype column = lastColumnFirst ? width - 1 : 0;
    const qsizetype stepDown = lastRowFirst ? -rowStep : rowStep;
    const qsizetype stepRight = lastColumnFirst ? -columnStep : columnStep;
    quint32* first = reinterpret_cast<quint32*>(shown.bits()) + row * rowStep + column * columnStep;
    if (!exchangesSides()) {
        for (int y = 0; y < rowCount; ++y, first += stepDown, rows += width) {
            if (lastColumnFirst) {
                std::reverse_copy(rows, rows + width, first - (width - 1));
            } else {
                std::copy_n(rows, width, first);
            }
        }
        return;
    }
    // The rows of one call become short runs of neighbours in each shown row.
    for (qsizetype x = 0; x < width; ++x, first += stepRight) {
        for (qsizetype y = 0; y < rowCount; ++y) {
            first[y * stepDown] = rows[y * width + x];
        }
    }
}

} // namespace platform
