#include "platform/delivered_icon.h"

#include "platform/files.h"
#include "platform/paths.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QScopeGuard>
#include <algorithm>
#include <cmath>
#include <png.h>

namespace platform {

namespace {

constexpr qint64 kMostBytes = qint64(4) << 20;
constexpr png_uint_32 kMostPixelsASide = 8192;

// By libpng itself, since Qt's readers would load every picture plug-in to ask it for PNG first.
QImage decoded(const QByteArray& bytes)
{
    png_image png = {};
    png.version = PNG_IMAGE_VERSION;
    const auto release = qScopeGuard([&png] { png_image_free(&png); });
    if (png_image_begin_read_from_memory(&png, bytes.constData(),
                                         static_cast<std::size_t>(bytes.size())) == 0 ||
        png.width > kMostPixelsASide || png.height > kMostPixelsASide) {
        return {};
    }
    png.format = PNG_FORMAT_RGBA;
    QImage image(static_cast<int>(png.width), static_cast<int>(png.height),
                 QImage::Format_RGBA8888);
    if (image.isNull() ||
        png_image_finish_read(&png, nullptr, image.bits(),
                              static_cast<png_int_32>(image.bytesPerLine()), nullptr) == 0) {
        return {};
    }
    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

} // namespace

QImage deliveredPng(const QString& path)
{
    const auto bytes = readFile(path, kMostBytes);
    return bytes ? decoded(*bytes) : QImage();
}

int highestScreenRatio()
{
    return qGuiApp != nullptr ? static_cast<int>(std::ceil(qGuiApp->devicePixelRatio())) : 1;
}

QIcon deliveredIcon(const QString& name)
{
    QIcon icon;
    const QString base = appFile(QStringLiteral("Images/toolbar/") + name);
    const int ratios = std::min(highestScreenRatio(), kHighestDeliveredRatio);
    for (int ratio = 1; ratio <= ratios; ++ratio) {
        const QString ending =
            ratio == 1 ? QStringLiteral(".png") : QStringLiteral("@%1x.png").arg(ratio);
        QPixmap picture = QPixmap::fromImage(deliveredPng(base + ending));
        if (!picture.isNull()) {
            picture.setDevicePixelRatio(ratio);
            icon.addPixmap(picture);
        }
    }
    return icon;
}

} // namespace platform
