#include "platform/pictures/bmp_rle.h"

#include "base/byte_reader.h"

namespace platform {

namespace {

// Where the next pixel lands, counted in stored rows.
class Pen {
public:
    Pen(QImage& image, const BmpHeader& header)
        : m_image(image)
        , m_header(header)
    {
    }

    [[nodiscard]] bool isInside() const { return m_y < m_header.height; }

    void put(unsigned index)
    {
        if (isInside() && m_x < m_header.width) {
            const qint64 row = m_header.topDown ? m_y : m_header.height - 1 - m_y;
            reinterpret_cast<quint32*>(m_image.scanLine(int(row)))[m_x] = m_header.palette[index];
        }
        ++m_x;
    }

    void startRow()
    {
        m_x = 0;
        ++m_y;
    }

    void move(unsigned right, unsigned rows)
    {
        m_x += right;
        m_y += rows;
    }

private:
    QImage& m_image;
    const BmpHeader& m_header;
    qint64 m_x = 0;
    qint64 m_y = 0;
};

// Pixel number i of bytes that hold two pixels each, the upper half first, or one.
unsigned indexAt(const base::ByteReader& bytes, std::size_t at, unsigned i, bool halves)
{
    if (!halves) {
        return bytes.byteAt(at + i);
    }
    const unsigned both = bytes.byteAt(at + i / 2);
    return i % 2 == 0 ? both >> 4U : both & 15U;
}

} // namespace

bool unpackBmpRle(QImage& image, const QByteArray& codes, const BmpHeader& header)
{
    enum Escape : unsigned { EndOfRow = 0, EndOfPicture = 1, Move = 2 };
    const base::ByteReader bytes(
        std::as_bytes(std::span(codes.constData(), std::size_t(codes.size()))));
    const bool halves = header.coding == BmpCoding::Rle4;
    Pen pen(image, header);
    std::size_t at = 0;
    while (at + 1 < bytes.size() && pen.isInside()) {
        const unsigned count = bytes.byteAt(at);
        const unsigned code = bytes.byteAt(at + 1);
        at += 2;
        if (count > 0) {
            for (unsigned i = 0; i < count; ++i) {
                pen.put(halves ? (i % 2 == 0 ? code >> 4U : code & 15U) : code);
            }
        } else if (code == EndOfPicture) {
            break;
        } else if (code == EndOfRow) {
            pen.startRow();
        } else if (code == Move) {
            pen.move(bytes.byteAt(at), bytes.byteAt(at + 1));
            at += 2;
        } else {
            for (unsigned i = 0; i < code; ++i) {
                pen.put(indexAt(bytes, at, i, halves));
            }
            // Pixels as they are fill up to a whole 16-bit word.
            const std::size_t used = halves ? (code + 1U) / 2U : code;
            at += (used + 1) / 2 * 2;
        }
    }
    return bytes.size() >= 2;
}

} // namespace platform
