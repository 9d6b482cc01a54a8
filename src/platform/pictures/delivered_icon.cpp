#include "platform/pictures/delivered_icon.h"

#include "platform/os/files.h"
#include "platform/os/paths.h"

#include <QGuiApplication>
#include <QPixmap>
#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr qint64 kMostBytes = qint64(4) << 20;

} // namespace

QString deliveredVariant(const QString& base, int ratio)
{
    return base + (ratio == 1 ? QStringLiteral(".png") : QStringLiteral("@%1x.png").arg(ratio));
}

QImage deliveredPng(const QString& path)
{
    const auto bytes = readFile(path, kMostBytes);
    // Named, because these are PNG whatever their content looks like.
    return bytes ? QImage::fromData(*bytes, "PNG") : QImage();
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
        QPixmap picture = QPixmap::fromImage(deliveredPng(deliveredVariant(base, ratio)));
        if (!picture.isNull()) {
            picture.setDevicePixelRatio(ratio);
            icon.addPixmap(picture);
        }
    }
    return icon;
}

} // namespace platform
