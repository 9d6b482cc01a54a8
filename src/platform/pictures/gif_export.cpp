#include "platform/pictures/gif_export.h"

#include "formats/gif_writer.h"
#include "platform/os/files.h"
#include "platform/pictures/colour_reduction.h"

#include <new>
#include <vector>

namespace platform {

namespace {

formats::GifBitmapInfo infoOf(const IndexedPicture& picture)
{
    formats::GifBitmapInfo info;
    info.width = picture.width;
    info.height = picture.height;
    for (std::size_t i = 0; i < picture.table.size(); ++i) {
        const QRgb colour = picture.table[i];
        info.colours[i] = {static_cast<std::uint8_t>(qRed(colour)),
                           static_cast<std::uint8_t>(qGreen(colour)),
                           static_cast<std::uint8_t>(qBlue(colour))};
    }
    return info;
}

// Nobody knows how long the file becomes before it is coded, so it takes memory as it grows.
bool encode(const IndexedPicture& picture, std::vector<std::byte>& file)
{
    try {
        return WriteGifFile(infoOf(picture), picture.bits, file);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace

bool writeGif(const Picture& picture, const QString& fileName)
{
    if (picture.type() != PictureType::Bitmap) {
        return false;
    }
    const auto reduced = reduceColours(picture.flattened());
    std::vector<std::byte> bytes;
    if (!reduced || !encode(*reduced, bytes)) {
        return false;
    }
    return writeFileWhole(fileName,
                          QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()),
                                                  static_cast<qsizetype>(bytes.size())),
                          Flush::ToDisk);
}

} // namespace platform
