#include "widgets/avi_frames.h"

#include "base/byte_reader.h"

#include <algorithm>

namespace widgets {

namespace {

// Row of the picture that the stored row stands for, both from 0.
int pictureRow(const AviFormat& format, int storedRow)
{
    return format.topDown ? storedRow : format.height - 1 - storedRow;
}

QRgb paletteColour(const AviFormat& format, std::uint8_t index)
{
    return index < format.palette.size() ? format.palette[index] : qRgb(0, 0, 0);
}

QRgb* rowPixels(QImage& picture, int row)
{
    return reinterpret_cast<QRgb*>(picture.scanLine(row));
}

void drawDib(QImage& picture, const AviFormat& format, std::span<const std::byte> bytes)
{
    const base::ByteReader reader(bytes);
    const int bytesPerPixel = format.coding == AviCoding::Dib24 ? 3 : 1;
    const auto rowBytes = static_cast<std::size_t>((format.width * bytesPerPixel + 3) / 4 * 4);
    for (int stored = 0; stored < format.height; ++stored) {
        std::size_t at = rowBytes * static_cast<std::size_t>(stored);
        if (at + rowBytes > bytes.size()) {
            return;
        }
        QRgb* row = rowPixels(picture, pictureRow(format, stored));
        for (int x = 0; x < format.width; ++x, at += static_cast<std::size_t>(bytesPerPixel)) {
            row[x] = bytesPerPixel == 1
                         ? paletteColour(format, reader.byteAt(at))
                         : qRgb(reader.byteAt(at + 2), reader.byteAt(at + 1), reader.byteAt(at));
        }
    }
}

// Where the next pixel of a run-length coded frame goes; stored rows count from the bottom.
class RunWriter {
public:
    RunWriter(QImage& picture, const AviFormat& format)
        : m_picture(picture)
        , m_format(format)
    {
    }

    void put(std::uint8_t index)
    {
        if (m_x < m_format.width && m_row < m_format.height) {
            rowPixels(m_picture, pictureRow(m_format, m_row))[m_x] = paletteColour(m_format, index);
        }
        m_x = std::min(m_x + 1, m_format.width);
    }
    void endLine()
    {
        m_x = 0;
        skip(0, 1);
    }
    void skip(int columns, int rows)
    {
        m_x = std::min(m_x + columns, m_format.width);
        m_row = std::min(m_row + rows, m_format.height);
    }
    [[nodiscard]] bool isFull() const { return m_row >= m_format.height; }

private:
    QImage& m_picture;
    const AviFormat& m_format;
    int m_x = 0;
    int m_row = 0;
};

void drawRuns(QImage& picture, const AviFormat& format, std::span<const std::byte> bytes)
{
    constexpr std::uint8_t kEndOfLine = 0;
    constexpr std::uint8_t kEndOfFrame = 1;
    constexpr std::uint8_t kSkip = 2;
    const base::ByteReader reader(bytes);
    RunWriter writer(picture, format);
    std::size_t at = 0;
    while (at + 2 <= bytes.size() && !writer.isFull()) {
        const std::uint8_t count = reader.byteAt(at);
        const std::uint8_t code = reader.byteAt(at + 1);
        at += 2;
        if (count > 0) {
            for (int i = 0; i < count; ++i) {
                writer.put(code);
            }
        } else if (code == kEndOfLine) {
            writer.endLine();
        } else if (code == kEndOfFrame) {
            return;
        } else if (code == kSkip) {
            writer.skip(reader.byteAt(at), reader.byteAt(at + 1));
            at += 2;
        } else {
            for (std::size_t i = 0; i < code && at + i < bytes.size(); ++i) {
                writer.put(reader.byteAt(at + i));
            }
            at += (static_cast<std::size_t>(code) + 1) / 2 * 2;
        }
    }
}

} // namespace

void drawAviFrame(QImage& picture, const AviFormat& format, std::span<const std::byte> bytes)
{
    if (format.coding == AviCoding::Rle8) {
        drawRuns(picture, format, bytes);
    } else {
        drawDib(picture, format, bytes);
    }
}

} // namespace widgets
