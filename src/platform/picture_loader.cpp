#include "platform/picture_loader.h"

#include "platform/files.h"
#include "platform/icon_directory.h"
#include "platform/jpeg_decoder.h"
#include "platform/picture_kind.h"

#include "base/byte_reader.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <algorithm>
#include <cstdlib>
#include <memory>

namespace platform {

namespace {

constexpr int kMaxPictureMegabytes = 512;
constexpr qint64 kMaxIconFileBytes = qint64(64) << 20;

bool isPossibleSize(QSize size)
{
    return !size.isEmpty() &&
           qint64(size.width()) * size.height() <= (qint64(kMaxPictureMegabytes) << 20) / 4;
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

QImage readBmp(QIODevice& file, const base::ByteReader& start)
{
    const bool isCore = start.little32At(14) == 12;
    const qint64 width = isCore ? start.little16At(18) : qint32(start.little32At(18));
    const qint64 height = isCore ? start.little16At(20) : qint32(start.little32At(22));
    if (width <= 0 || height == 0 || !isPossibleSize({int(width), int(std::abs(height))})) {
        return {};
    }
    return readAs("bmp", file);
}

QImage readGif(QIODevice& file, const base::ByteReader& start)
{
    if (!isPossibleSize({start.little16At(6), start.little16At(8)})) {
        return {};
    }
    return readAs("gif", file);
}

QImage readIcon(QIODevice& file)
{
    QByteArray bytes = file.read(kMaxIconFileBytes);
    const auto entries =
        iconEntries(std::as_bytes(std::span(bytes.constData(), std::size_t(bytes.size()))));
    for (const IconEntry& entry : entries) {
        if (!isPossibleSize(entry.size)) {
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
    QByteArray start;
    PictureKind kind = PictureKind::Unknown;

    [[nodiscard]] std::span<const std::byte> startBytes() const
    {
        return std::as_bytes(std::span(start.constData(), std::size_t(start.size())));
    }
};

std::optional<OpenPicture> openPicture(const QString& path)
{
    OpenPicture picture;
    picture.file = openForReading(path);
    if (!picture.file) {
        return std::nullopt;
    }
    picture.start = picture.file->peek(qint64(kPictureKindBytes));
    picture.kind = pictureKind(picture.startBytes());
    if (picture.kind == PictureKind::Unknown) {
        return std::nullopt;
    }
    return picture;
}

// All kinds but JPEG, which comes in fractions.
QImage readWhole(OpenPicture& picture)
{
    const base::ByteReader start(picture.startBytes());
    switch (picture.kind) {
    case PictureKind::Bmp:
        return readBmp(*picture.file, start);
    case PictureKind::Gif:
        return readGif(*picture.file, start);
    case PictureKind::Icon:
        return readIcon(*picture.file);
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
    return isPossibleSize(size) ? pictureOf(decoder.decode(size)) : std::nullopt;
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
    if (!isPossibleSize(size)) {
        return std::nullopt;
    }
    auto picture = pictureOf(decoder.decode(fit(size, box)));
    return picture ? std::optional(TilePicture{std::move(*picture), size}) : std::nullopt;
}

} // namespace platform
