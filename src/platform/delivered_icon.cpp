#include "platform/delivered_icon.h"

#include "platform/files.h"
#include "platform/paths.h"

#include <QPixmap>

namespace platform {

namespace {

constexpr qint64 kMostBytes = qint64(1) << 20;

} // namespace

QIcon deliveredIcon(const QString& name)
{
    QIcon icon;
    const QString base = appFile(QStringLiteral("Images/toolbar/") + name);
    for (int density = 1; density <= 3; ++density) {
        const QString ending =
            density == 1 ? QStringLiteral(".png") : QStringLiteral("@%1x.png").arg(density);
        const auto bytes = readFile(base + ending, kMostBytes);
        QPixmap picture;
        if (bytes && picture.loadFromData(*bytes)) {
            picture.setDevicePixelRatio(density);
            icon.addPixmap(picture);
        }
    }
    return icon;
}

} // namespace platform
