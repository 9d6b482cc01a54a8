#pragma once

#include <QByteArray>
#include <QImage>
#include <cstdint>
#include <vector>

// Picture files made in memory, so that tests can bend every field.
namespace test {

struct JpegOptions {
    int quality = 95;
    bool progressive = false;
    // Stored as four inks; with an Adobe marker, as the light that they leave.
    enum class Ink { None, Plain, Adobe } ink = Ink::None;
    int orientation = 0; // 0 writes no EXIF segment
    bool bigEndianExif = false;
};

[[nodiscard]] QByteArray jpegFile(const QImage& image, const JpegOptions& options = {});

// Whole file, 24 bits, bottom-up.
[[nodiscard]] QByteArray bmpFile(const QImage& image);

struct GifFrame {
    std::vector<int> indices; // into black, white, red, blue; row by row
    int transparent = -1;
};

// Every frame covers the whole screen.
[[nodiscard]] QByteArray gifFile(int width, int height, const std::vector<GifFrame>& frames);

enum class IconCoding { Bitmap, Png };

struct IconImage {
    QImage image;
    IconCoding coding = IconCoding::Bitmap;
};

// type 1 is an icon, 2 a cursor.
[[nodiscard]] QByteArray iconFile(const std::vector<IconImage>& images, int type = 1);

} // namespace test
