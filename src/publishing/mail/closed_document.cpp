#include "publishing/mail/closed_document.h"

#include "platform/os/files.h"
#include "platform/pictures/picture_loader.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QUrl>
#include <algorithm>
#include <array>

namespace mail {

namespace {

// What every mail program shows. Others, SVG above all, may themselves name files and servers.
struct PictureKind {
    const char* mime;
    const char* format; // of the toolkit's reader
};
constexpr std::array kKinds{
    PictureKind{"image/jpeg", "jpeg"},
    PictureKind{"image/png", "png"},
    PictureKind{"image/gif", "gif"},
};

constexpr qint64 kLargestFile = qint64(32) << 20;
constexpr int kMostMegabytes = 512;
constexpr int kFrameSide = 32; // pixels

const QString kScheme = QStringLiteral("data");
const QByteArray kEncoding(";base64");

const PictureKind* kindOf(const QByteArray& mime)
{
    const auto* const kind =
        std::ranges::find_if(kKinds, [&](const PictureKind& known) { return mime == known.mime; });
    return kind == kKinds.end() ? nullptr : kind;
}

// Null for bytes that aren't of the kind that they are told to be.
QImage decoded(QByteArray bytes, const PictureKind& kind)
{
    QBuffer buffer(&bytes);
    QImageReader::setAllocationLimit(kMostMegabytes);
    QImageReader reader(&buffer, kind.format);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    return reader.read();
}

QImage pictureIn(const QUrl& address)
{
    if (address.scheme() != kScheme) {
        return {};
    }
    const QByteArray content = address.path(QUrl::FullyEncoded).toLatin1();
    const qsizetype comma = content.indexOf(',');
    const QByteArray type = content.left(std::max<qsizetype>(comma, 0)).toLower();
    const PictureKind* kind =
        type.endsWith(kEncoding) ? kindOf(type.chopped(kEncoding.size())) : nullptr;
    if (kind == nullptr) {
        return {};
    }
    return decoded(QByteArray::fromBase64(QByteArray::fromPercentEncoding(content.mid(comma + 1))),
                   *kind);
}

QImage emptyFrame()
{
    QImage frame(kFrameSide, kFrameSide, QImage::Format_ARGB32_Premultiplied);
    frame.fill(Qt::transparent);
    QPainter painter(&frame);
    painter.setPen(Qt::gray);
    painter.drawRect(0, 0, kFrameSide - 1, kFrameSide - 1);
    painter.drawLine(0, 0, kFrameSide - 1, kFrameSide - 1);
    painter.drawLine(0, kFrameSide - 1, kFrameSide - 1, 0);
    return frame;
}

HeldPicture held(const char* mime, const QByteArray& bytes, QSize size)
{
    return {kScheme + u':' + QString::fromLatin1(mime) + QString::fromLatin1(kEncoding) + u',' +
                QString::fromLatin1(bytes.toBase64()),
            size};
}

} // namespace

// Never a null picture: in its place the toolkit would look for a file of that name.
QVariant ClosedDocument::loadResource(int type, const QUrl& name)
{
    if (type != ImageResource) {
        return QByteArray();
    }
    const QImage picture = pictureIn(name);
    return picture.isNull() ? emptyFrame() : picture;
}

std::optional<HeldPicture> heldPicture(const QString& path)
{
    const std::optional<QByteArray> bytes = platform::readFile(path, kLargestFile);
    if (!bytes) {
        return std::nullopt;
    }
    for (const PictureKind& kind : kKinds) {
        const QImage picture = decoded(*bytes, kind);
        if (!picture.isNull()) {
            return held(kind.mime, *bytes, picture.size());
        }
    }
    const std::optional<platform::Picture> picture = platform::loadPicture(path);
    return picture ? heldPicture(picture->flattened()) : std::nullopt;
}

std::optional<HeldPicture> heldPicture(const QImage& picture)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (picture.isNull() || !picture.save(&buffer, "PNG")) {
        return std::nullopt;
    }
    return held("image/png", bytes, picture.size());
}

} // namespace mail
