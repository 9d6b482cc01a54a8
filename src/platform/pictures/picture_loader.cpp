#include "platform/pictures/picture_loader.h"

#include "platform/os/files.h"
#include "platform/pictures/bmp_decoder.h"
#include "platform/pictures/icon_directory.h"
#include "platform/pictures/jpeg_decoder.h"
#include "platform/pictures/metafile_reader.h"
#include "platform/pictures/picture_kind.h"

#include "base/byte_reader.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <memory>
#include <utility>

namespace platform {

namespace {

constexpr int kMaxPictureMegabytes = 512;
constexpr qint64 kMaxIconFileBytes = qint64(64) << 20;

// No coding here packs more pixels into a byte than this, so a short file that claims more would
// only cost memory. Pictures up to a million pixels may claim what they like.
constexpr qint64 kMostPixelsPerByte = 4096;
constexpr qint64 kAlwaysPossiblePixels = qint64(1) << 20;

bool isPossibleSize(QSize size, qint64 fileBytes)
{
    const qint64 pixels = qint64(size.width()) * size.height();
    return !size.isEmpty() && pixels <= (qint64(kMaxPictureMegabytes) << 20) / 4 &&
           (pixels <= kAlwaysPossiblePixels || pixels / kMostPixelsPerByte <= fileBytes);
}

std::span<const std::byte> bytesOf(const QByteArray& bytes)
{
    return std::as_bytes(std::span(bytes.constData(), std::size_t(bytes.size())));
}

// Exactly one of the library's readers gets to see the file, whatever its content would suggest.
QImage readAs(const char* format, QIODevice& file, int imageIndex = 0)
{
    QImageReader::setAllocationLimit(kMaxPictureMegabytes);
    QImageReader reader;
    reader.setAutoDetectImageFormat(false);
    reader.setDecideFormatFromContent(false);
    reader.setDevice(&file);
    reader.setFormat(format);
    if (imageIndex > 0 && !reader.jumpToImage(imageIndex)) {
        return {};
    }
    return reader.read();
}

QImage readBmp(QIODevice& file)
{
    const QByteArray start = file.peek(qint64(kLongestBmpHead));
    const auto header = readBmpHeader(bytesOf(start));
    if (!header || !isPossibleSize({header->width, header->height}, file.size())) {
        return {};
    }
    return decodeBmp(file, *header);
}

QImage readGif(QIODevice& file)
{
    constexpr qint64 kScreenEnd = 10;
    const QByteArray start = file.peek(kScreenEnd);
    const base::ByteReader head(bytesOf(start));
    if (!isPossibleSize({head.little16At(6), head.little16At(8)}, file.size())) {
        return {};
    }
    return readAs("gif", file);
}

QImage readIcon(QIODevice& file)
{
    QByteArray bytes = file.read(kMaxIconFileBytes);
    for (const IconEntry& entry : iconEntries(bytesOf(bytes))) {
        if (!isPossibleSize(entry.size, bytes.size())) {
            continue;
        }
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        const QImage image = readAs("ico", buffer, entry.index);
        if (!image.isNull()) {
            return image;
        }
    }
    return {};
}

// A file of the loader's kinds, open at its first byte.
struct OpenPicture {
    std::unique_ptr<QFile> file;
    PictureKind kind = PictureKind::Unknown;
};

std::optional<OpenPicture> openPicture(const QString& path)
{
    OpenPicture picture;
    picture.file = openForReading(path);
    if (!picture.file) {
        return std::nullopt;
    }
    picture.kind = pictureKind(bytesOf(picture.file->peek(qint64(kPictureKindBytes))));
    if (picture.kind == PictureKind::Unknown) {
        return std::nullopt;
    }
    return picture;
}

// All kinds but JPEG, which comes in fractions.
QImage readWhole(const OpenPicture& picture)
{
    switch (picture.kind) {
    case PictureKind::Bmp:
        return readBmp(*picture.file);
    case PictureKind::Gif:
        return readGif(*picture.file);
    case PictureKind::Icon:
        return readIcon(*picture.file);
    case PictureKind::Metafile:
    case PictureKind::EnhancedMetafile:
        return readMetafile(*picture.file, metafileHelper()).image;
    default:
        return {};
    }
}

std::optional<Picture> pictureOf(QImage image)
{
    Picture picture(std::move(image));
    return picture.isNothing() ? std::nullopt : std::optional(std::move(picture));
}

} // namespace

std::optional<Picture> loadPicture(const QString& path)
{
    auto opened = openPicture(path);
    if (!opened) {
        return std::nullopt;
    }
    if (opened->kind != PictureKind::Jpeg) {
        return pictureOf(readWhole(*opened));
    }
    JpegDecoder decoder(*opened->file);
    const QSize size = decoder.naturalSize();
    if (!isPossibleSize(size, opened->file->size())) {
        return std::nullopt;
    }
    return pictureOf(decoder.decode(size));
}

std::optional<TilePicture> loadTilePicture(const QString& path, QSize box, TileFit fit)
{
    auto opened = openPicture(path);
    if (!opened) {
        return std::nullopt;
    }
    if (opened->kind != PictureKind::Jpeg) {
        auto picture = pictureOf(readWhole(*opened));
        if (!picture) {
            return std::nullopt;
        }
        const QSize size(picture->width(), picture->height());
        return TilePicture{std::move(*picture), size};
    }
    JpegDecoder decoder(*opened->file);
    const QSize size = decoder.naturalSize();
    if (!isPossibleSize(size, opened->file->size())) {
        return std::nullopt;
    }
    auto picture = pictureOf(decoder.decode(fit(size, box)));
    return picture ? std::optional(TilePicture{std::move(*picture), size}) : std::nullopt;
}

} // namespace platform
