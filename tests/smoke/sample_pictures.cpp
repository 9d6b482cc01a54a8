#include "smoke/sample_pictures.h"

#include <QBuffer>
#include <QImage>

namespace smoke {

namespace {

constexpr int kPcxHeader = 128;
constexpr int kPcxRows = 32;
constexpr int kPalette = 768;
constexpr int kEntry = 7; // of the palette, the one that the pixels have

} // namespace

QByteArray jpegOf(QColor colour, QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "JPEG", 95);
    return bytes;
}

QByteArray pcxOf(QColor colour)
{
    QByteArray bytes(kPcxHeader, '\0');
    bytes[0] = 10;
    bytes[1] = 5;
    bytes[2] = 1;
    bytes[3] = 8;
    bytes[8] = 63;            // last column
    bytes[10] = kPcxRows - 1; // last row
    bytes[65] = 1;            // planes
    bytes[66] = 64;           // bytes a row
    for (int row = 0; row < kPcxRows; ++row) {
        bytes.append("\xFF\x07\xC1\x07", 4); // runs of 63 and of 1 pixel
    }
    bytes.append('\x0C');
    QByteArray palette(kPalette, '\0');
    palette[3 * kEntry] = static_cast<char>(colour.red());
    palette[3 * kEntry + 1] = static_cast<char>(colour.green());
    palette[3 * kEntry + 2] = static_cast<char>(colour.blue());
    return bytes + palette;
}

void addSamplePictures(const support::TempTree& tree)
{
    tree.add({"pics/a.jpg", jpegOf(kRed, kJpegSize).toStdString()});
    tree.add({"pics/b.jpg", jpegOf(kGreen, kJpegSize).toStdString()});
    tree.add({"pics/c.pcx", pcxOf(kBlue).toStdString()});
}

} // namespace smoke
