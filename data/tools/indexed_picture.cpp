#include "indexed_picture.h"

#include "formats/gif_writer.h"
#include "platform/pictures/colour_reduction.h"

#include <algorithm>
#include <vector>

namespace tools {

namespace {

struct Loss {
    int red = 0;
    int green = 0;
    int blue = 0;

    void add(const Loss& loss, int sixteenths)
    {
        red += loss.red * sixteenths;
        green += loss.green * sixteenths;
        blue += loss.blue * sixteenths;
    }
};

QRgb corrected(QRgb colour, const Loss& loss)
{
    return qRgb(std::clamp(qRed(colour) + loss.red / 16, 0, 255),
                std::clamp(qGreen(colour) + loss.green / 16, 0, 255),
                std::clamp(qBlue(colour) + loss.blue / 16, 0, 255));
}

std::uint8_t nearest(const std::array<QRgb, 256>& palette, QRgb colour)
{
    std::size_t best = 0;
    int least = 1 << 20;
    for (std::size_t entry = 0; entry < palette.size() && least > 0; ++entry) {
        const int red = qRed(palette[entry]) - qRed(colour);
        const int green = qGreen(palette[entry]) - qGreen(colour);
        const int blue = qBlue(palette[entry]) - qBlue(colour);
        const int distance = red * red + green * green + blue * blue;
        if (distance < least) {
            least = distance;
            best = entry;
        }
    }
    return static_cast<std::uint8_t>(best);
}

// Error diffusion after Floyd and Steinberg, row by row from the left.
void diffuse(const QImage& image, IndexedPicture& picture)
{
    const auto width = static_cast<std::size_t>(image.width());
    std::vector<Loss> here(width + 2);
    std::vector<Loss> below(width + 2);
    for (int y = 0; y < image.height(); ++y) {
        for (std::size_t x = 0; x < width; ++x) {
            const QRgb wanted = corrected(image.pixel(static_cast<int>(x), y), here[x + 1]);
            const std::uint8_t index = nearest(picture.palette, wanted);
            const QRgb got = picture.palette[index];
            const Loss loss{qRed(wanted) - qRed(got), qGreen(wanted) - qGreen(got),
                            qBlue(wanted) - qBlue(got)};
            here[x + 2].add(loss, 7);
            below[x].add(loss, 3);
            below[x + 1].add(loss, 5);
            below[x + 2].add(loss, 1);
            picture.pixels.push_back(index);
        }
        here.swap(below);
        std::fill(below.begin(), below.end(), Loss{});
    }
}

} // namespace

std::optional<IndexedPicture> indexed(const QImage& image)
{
    const auto reduced = platform::reduceColours(image);
    if (!reduced) {
        return std::nullopt;
    }
    IndexedPicture picture;
    picture.width = image.width();
    picture.height = image.height();
    picture.palette = reduced->table;
    diffuse(image, picture);
    return picture;
}

Bytes gifFile(const IndexedPicture& picture)
{
    formats::GifBitmapInfo info;
    info.width = picture.width;
    info.height = picture.height;
    for (std::size_t entry = 0; entry < picture.palette.size(); ++entry) {
        const QRgb colour = picture.palette[entry];
        info.colours[entry] = {static_cast<std::uint8_t>(qRed(colour)),
                               static_cast<std::uint8_t>(qGreen(colour)),
                               static_cast<std::uint8_t>(qBlue(colour))};
    }
    const auto width = static_cast<std::size_t>(picture.width);
    const auto height = static_cast<std::size_t>(picture.height);
    const std::size_t stride = formats::gifStride(info);
    std::vector<std::byte> bits(stride * height);
    for (std::size_t y = 0; y < height; ++y) {
        std::transform(picture.pixels.begin() + static_cast<std::ptrdiff_t>(y * width),
                       picture.pixels.begin() + static_cast<std::ptrdiff_t>((y + 1) * width),
                       bits.begin() + static_cast<std::ptrdiff_t>((height - 1 - y) * stride),
                       [](std::uint8_t index) { return std::byte{index}; });
    }
    std::vector<std::byte> file;
    if (!WriteGifFile(info, bits, file)) {
        return {};
    }
    Bytes bytes(file.size());
    std::transform(file.begin(), file.end(), bytes.begin(),
                   [](std::byte value) { return std::to_integer<std::uint8_t>(value); });
    return bytes;
}

} // namespace tools
