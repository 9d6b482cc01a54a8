#include "sample_writers.h"

#include "run_length.h"

#include <array>

namespace tools {

namespace {

unsigned sizeOf(int pixels)
{
    return static_cast<unsigned>(pixels);
}

// One colour of a row; the shift is 16 for red, 8 for green, 0 for blue.
Bytes plane(const QImage& image, int y, unsigned shift)
{
    Bytes values;
    for (int x = 0; x < image.width(); ++x) {
        values.push_back(static_cast<std::uint8_t>(image.pixel(x, y) >> shift));
    }
    return values;
}

constexpr std::array kRedGreenBlue{16U, 8U, 0U};

void appendPcxHead(ByteSink& sink, unsigned width, unsigned height, unsigned planes)
{
    sink.byte(10); // the maker's mark
    sink.byte(5);  // the version that has a palette of 256 colours
    sink.byte(1);  // packed
    sink.byte(8);
    sink.little16(0);
    sink.little16(0);
    sink.little16(width - 1);
    sink.little16(height - 1);
    sink.little16(96);
    sink.little16(96);
    sink.zeros(48 + 1); // palette of 16 colours, reserved
    sink.byte(planes);
    sink.little16(width);
    sink.little16(1);
    sink.zeros(58);
}

void appendPalette(ByteSink& sink, const IndexedPicture& picture)
{
    for (const QRgb colour : picture.palette) {
        sink.byte(static_cast<unsigned>(qRed(colour)));
        sink.byte(static_cast<unsigned>(qGreen(colour)));
        sink.byte(static_cast<unsigned>(qBlue(colour)));
    }
}

std::span<const std::uint8_t> rowOf(const IndexedPicture& picture, int y)
{
    const auto width = static_cast<std::size_t>(picture.width);
    return std::span(picture.pixels).subspan(static_cast<std::size_t>(y) * width, width);
}

struct TiffEntry {
    unsigned tag;
    unsigned type;
    std::uint32_t count;
    std::uint32_t value;
};

void appendEntry(ByteSink& sink, const TiffEntry& entry)
{
    sink.little16(entry.tag);
    sink.little16(entry.type);
    sink.little32(entry.count);
    sink.little32(entry.value);
}

Bytes rgbRows(const QImage& image)
{
    Bytes rows;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            for (const unsigned shift : kRedGreenBlue) {
                rows.push_back(static_cast<std::uint8_t>(image.pixel(x, y) >> shift));
            }
        }
    }
    return rows;
}

} // namespace

Bytes pcxFile(const IndexedPicture& picture)
{
    ByteSink sink;
    appendPcxHead(sink, sizeOf(picture.width), sizeOf(picture.height), 1);
    for (int y = 0; y < picture.height; ++y) {
        sink.append(packedPcx(rowOf(picture, y)));
    }
    sink.byte(12); // the palette begins
    appendPalette(sink, picture);
    return sink.bytes();
}

Bytes pcxFile(const QImage& image)
{
    ByteSink sink;
    appendPcxHead(sink, sizeOf(image.width()), sizeOf(image.height()), 3);
    for (int y = 0; y < image.height(); ++y) {
        for (const unsigned shift : kRedGreenBlue) {
            sink.append(packedPcx(plane(image, y, shift)));
        }
    }
    return sink.bytes();
}

Bytes psdFile(const QImage& image)
{
    ByteSink sink;
    sink.text("8BPS");
    sink.big16(1);
    sink.zeros(6);
    sink.big16(3);
    sink.big32(sizeOf(image.height()));
    sink.big32(sizeOf(image.width()));
    sink.big16(8);
    sink.big16(3);  // RGB
    sink.zeros(12); // neither colour table nor resources nor layers
    sink.big16(1);  // packed
    ByteSink rows;
    for (const unsigned shift : kRedGreenBlue) {
        for (int y = 0; y < image.height(); ++y) {
            const Bytes packed = packedBits(plane(image, y, shift));
            sink.big16(static_cast<unsigned>(packed.size()));
            rows.append(packed);
        }
    }
    sink.append(rows.bytes());
    return sink.bytes();
}

Bytes tgaFile(const QImage& image)
{
    ByteSink sink;
    sink.byte(0);
    sink.byte(0);
    sink.byte(2); // colours, not packed
    sink.zeros(9);
    sink.little16(sizeOf(image.width()));
    sink.little16(sizeOf(image.height()));
    sink.byte(24);
    sink.byte(0); // the first row is the lowest
    for (int y = image.height() - 1; y >= 0; --y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb colour = image.pixel(x, y);
            sink.byte(static_cast<unsigned>(qBlue(colour)));
            sink.byte(static_cast<unsigned>(qGreen(colour)));
            sink.byte(static_cast<unsigned>(qRed(colour)));
        }
    }
    return sink.bytes();
}

Bytes tiffFile(const QImage& image)
{
    constexpr unsigned kShort = 3;
    constexpr unsigned kLong = 4;
    constexpr std::uint32_t kBitsAt = 160;
    constexpr std::uint32_t kStripAt = 168;
    const std::uint32_t width = sizeOf(image.width());
    const std::uint32_t height = sizeOf(image.height());
    // The length of the strip is left out: the program takes no value above 32767, and other
    // readers work it out.
    const std::array entries{
        TiffEntry{254, kLong, 1, 0},        TiffEntry{256, kShort, 1, width},
        TiffEntry{257, kShort, 1, height},  TiffEntry{258, kShort, 3, kBitsAt},
        TiffEntry{259, kShort, 1, 1},       TiffEntry{262, kShort, 1, 2},
        TiffEntry{273, kLong, 1, kStripAt}, TiffEntry{277, kShort, 1, 3},
        TiffEntry{278, kShort, 1, height},  TiffEntry{284, kShort, 1, 1},
    };
    ByteSink sink;
    sink.text("II");
    sink.little16(42);
    sink.little32(8);
    sink.little16(static_cast<unsigned>(entries.size()));
    for (const TiffEntry& entry : entries) {
        appendEntry(sink, entry);
    }
    sink.little32(0); // no further picture
    sink.zeros(kBitsAt - sink.size());
    for (int channel = 0; channel < 3; ++channel) {
        sink.little16(8);
    }
    sink.zeros(kStripAt - sink.size());
    const Bytes rows = rgbRows(image);
    sink.append(rows);
    // A pixel that is read late enough to leave its row is found at the start of the next one, so
    // the last row is followed by its own start.
    const std::size_t lastRow = rows.size() - std::size_t{width} * 3;
    sink.append(std::span(rows).subspan(lastRow, width - 2));
    return sink.bytes();
}

Bytes iffFile(const IndexedPicture& picture)
{
    ByteSink body;
    for (int y = 0; y < picture.height; ++y) {
        body.append(packedBits(rowOf(picture, y)));
    }
    body.zeros(body.size() % 2);
    ByteSink sink;
    sink.text("PBM BMHD");
    sink.big32(20);
    sink.big16(sizeOf(picture.width));
    sink.big16(sizeOf(picture.height));
    sink.big32(0); // left, top
    sink.byte(8);
    sink.byte(0);  // no mask
    sink.byte(1);  // packed
    sink.zeros(3); // padding, no transparent colour
    sink.byte(1);  // pixels are as wide as
    sink.byte(1);  // they are high
    sink.big16(sizeOf(picture.width));
    sink.big16(sizeOf(picture.height));
    sink.text("CMAP");
    sink.big32(768);
    appendPalette(sink, picture);
    sink.text("BODY");
    sink.big32(static_cast<std::uint32_t>(body.size()));
    sink.append(body.bytes());
    ByteSink form;
    form.text("FORM");
    form.big32(static_cast<std::uint32_t>(sink.size()));
    form.append(sink.bytes());
    return form.bytes();
}

Bytes withOrientation(const Bytes& jpeg, unsigned orientation)
{
    ByteSink note;
    note.text("Exif");
    note.little16(0);
    note.text("II");
    note.little16(42);
    note.little32(8);
    note.little16(1);
    appendEntry(note, {0x0112, 3, 1, orientation});
    note.little32(0);
    ByteSink sink;
    const std::span<const std::uint8_t> all(jpeg);
    sink.append(all.first(2)); // the note stands right behind the mark of the format
    sink.big16(0xFFE1);
    sink.big16(static_cast<unsigned>(note.size() + 2));
    sink.append(note.bytes());
    sink.append(all.subspan(2));
    return sink.bytes();
}

} // namespace tools
