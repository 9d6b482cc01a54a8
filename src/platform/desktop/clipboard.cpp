#include "platform/desktop/clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImageReader>

namespace platform {

namespace {

constexpr int kMostMegabytes = 512;
constexpr qsizetype kMostBytes = qsizetype(kMostMegabytes) << 20;

} // namespace

void clearClipboard()
{
    QGuiApplication::clipboard()->clear();
}

bool setClipboardPicture(const Picture& picture)
{
    const QImage flat = picture.flattened();
    if (flat.isNull() && !picture.isNothing()) {
        return false;
    }
    clearClipboard();
    if (!flat.isNull()) {
        QGuiApplication::clipboard()->setImage(flat);
    }
    return true;
}

void setClipboardText(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
}

QString clipboardText()
{
    return QGuiApplication::clipboard()->text();
}

std::optional<Picture> clipboardPicture()
{
    // Another program's picture comes as a file that the toolkit decodes.
    QImageReader::setAllocationLimit(kMostMegabytes);
    QImage image = QGuiApplication::clipboard()->image();
    // The picture made of it takes four bytes a pixel.
    const qsizetype bytes = qsizetype(image.width()) * image.height() * 4;
    if (image.isNull() || bytes > kMostBytes) {
        return std::nullopt;
    }
    Picture picture(std::move(image));
    return picture.isNothing() ? std::nullopt : std::optional<Picture>(std::move(picture));
}

} // namespace platform
