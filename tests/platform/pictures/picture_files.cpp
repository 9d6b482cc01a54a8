#include "platform/pictures/picture_files.h"

#include <QBuffer>
#include <cstdio>
#include <cstdlib>
#include <jpeglib.h>

namespace test {

namespace {

void put16(QByteArray& bytes, unsigned value)
{
    bytes.append(char(value & 255U));
    bytes.append(char(value >> 8U & 255U));
}

void put32(QByteArray& bytes, unsigned value)
{
    put16(bytes, value & 0xFFFFU);
    put16(bytes, value >> 16U);
}

// An EXIF segment whose only entry is the orientation.
QByteArray exifSegment(int orientation)
{
    QByteArray bytes("Exif\0\0", 6);
    bytes.append("II*\0", 4);
    put32(bytes, 8);
    put16(bytes, 1);
    put16(bytes, 0x0112);
    put16(bytes, 3);
    put32(bytes, 1);
    put32(bytes, unsigned(orientation));
    put32(bytes, 0);
    return bytes;
}

QByteArray bigEndianExifSegment(int orientation)
{
    QByteArray bytes("Exif\0\0", 6);
    bytes.append(QByteArray::fromHex("4d4d002a00000008"    // head, first directory at 8
                                     "0001"                // one entry
                                     "0112000300000001")); // orientation, one short number
    bytes.append(char(0));
    bytes.append(char(orientation));
    bytes.append(QByteArray::fromHex("000000000000"));
    return bytes;
}

std::vector<JSAMPLE> samplesOf(const QImage& image, int row, JpegOptions::Ink ink)
{
    std::vector<JSAMPLE> samples;
    for (int x = 0; x < image.width(); ++x) {
        const QRgb pixel = image.pixel(x, row);
        const int channels[] = {qRed(pixel), qGreen(pixel), qBlue(pixel)};
        for (const int channel : channels) {
            samples.push_back(JSAMPLE(ink == JpegOptions::Ink::Plain ? 255 - channel : channel));
        }
        if (ink != JpegOptions::Ink::None) {
            samples.push_back(JSAMPLE(ink == JpegOptions::Ink::Plain ? 0 : 255));
        }
    }
    return samples;
}

} // namespace

QByteArray jpegFile(const QImage& image, const JpegOptions& options)
{
    jpeg_compress_struct info{};
    jpeg_error_mgr errors{};
    unsigned char* file = nullptr;
    unsigned long size = 0;
    const bool isInk = options.ink != JpegOptions::Ink::None;
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    jpeg_mem_dest(&info, &file, &size);
    info.image_width = JDIMENSION(image.width());
    info.image_height = JDIMENSION(image.height());
    info.input_components = isInk ? 4 : 3;
    info.in_color_space = isInk ? JCS_CMYK : JCS_RGB;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, options.quality, TRUE);
    info.write_Adobe_marker = options.ink == JpegOptions::Ink::Adobe ? TRUE : FALSE;
    // Full colour resolution, so that colours stay on their side of a border.
    info.comp_info[0].h_samp_factor = 1;
    info.comp_info[0].v_samp_factor = 1;
    if (options.progressive) {
        jpeg_simple_progression(&info);
    }
    jpeg_start_compress(&info, TRUE);
    if (options.orientation != 0) {
        const QByteArray exif = options.bigEndianExif ? bigEndianExifSegment(options.orientation)
                                                      : exifSegment(options.orientation);
        jpeg_write_marker(&info, JPEG_APP0 + 1, reinterpret_cast<const JOCTET*>(exif.constData()),
                          unsigned(exif.size()));
    }
    for (int y = 0; y < image.height(); ++y) {
        std::vector<JSAMPLE> samples = samplesOf(image, y, options.ink);
        JSAMPROW row = samples.data();
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    const QByteArray bytes(reinterpret_cast<const char*>(file), qsizetype(size));
    std::free(file);
    return bytes;
}

QByteArray bmpFile(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.convertToFormat(QImage::Format_RGB32).save(&buffer, "bmp");
    return bytes;
}

QByteArray gifFile(int width, int height, const std::vector<GifFrame>& frames)
{
    QByteArray bytes("GIF89a");
    put16(bytes, unsigned(width));
    put16(bytes, unsigned(height));
    bytes.append(QByteArray::fromHex("810000" // global table of four colours
                                     "000000ffffffff00000000ff"));
    for (const GifFrame& frame : frames) {
        if (frame.transparent >= 0) {
            bytes.append(QByteArray::fromHex("21f904010a00"));
            bytes.append(char(frame.transparent));
            bytes.append(char(0));
        }
        bytes.append(',');
        put32(bytes, 0);
        put16(bytes, unsigned(width));
        put16(bytes, unsigned(height));
        bytes.append(char(0));
        bytes.append(char(2));
        // Codes of three bits; a clear code (4) after each two pixels keeps them at that width.
        unsigned held = 0;
        unsigned heldBits = 0;
        QByteArray data;
        const auto putCode = [&](unsigned code) {
            held |= code << heldBits;
            for (heldBits += 3; heldBits >= 8; heldBits -= 8, held >>= 8U) {
                data.append(char(held & 255U));
            }
        };
        for (std::size_t i = 0; i < frame.indices.size(); ++i) {
            if (i % 2 == 0) {
                putCode(4);
            }
            putCode(unsigned(frame.indices[i]));
        }
        putCode(5);
        data.append(char(held));
        for (qsizetype at = 0; at < data.size(); at += 255) {
            const QByteArray block = data.mid(at, 255);
            bytes.append(char(block.size()));
            bytes.append(block);
        }
        bytes.append(char(0));
    }
    bytes.append(';');
    return bytes;
}

namespace {

// A bitmap of 32 bits without file header; its height counts the empty mask below it too.
QByteArray iconBitmap(const QImage& image)
{
    QByteArray bytes;
    put32(bytes, 40);
    put32(bytes, unsigned(image.width()));
    put32(bytes, unsigned(image.height()) * 2);
    put16(bytes, 1);
    put16(bytes, 32);
    bytes.append(QByteArray(24, '\0'));
    for (int y = image.height() - 1; y >= 0; --y) {
        for (int x = 0; x < image.width(); ++x) {
            put32(bytes, image.pixel(x, y));
        }
    }
    bytes.append(QByteArray((image.width() + 31) / 32 * 4 * image.height(), '\0'));
    return bytes;
}

QByteArray pngFile(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "png");
    return bytes;
}

} // namespace

QByteArray iconFile(const std::vector<IconImage>& images, int type)
{
    QByteArray directory;
    put16(directory, 0);
    put16(directory, unsigned(type));
    put16(directory, unsigned(images.size()));
    QByteArray data;
    for (const IconImage& image : images) {
        const QByteArray bytes =
            image.coding == IconCoding::Png ? pngFile(image.image) : iconBitmap(image.image);
        directory.append(char(image.image.width()));
        directory.append(char(image.image.height()));
        put16(directory, 0);
        put16(directory, 1);
        put16(directory, 32);
        put32(directory, unsigned(bytes.size()));
        put32(directory, unsigned(6 + 16 * images.size() + std::size_t(data.size())));
        data.append(bytes);
    }
    return directory + data;
}

} // namespace test
