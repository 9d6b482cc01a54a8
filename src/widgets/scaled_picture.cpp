#include "widgets/scaled_picture.h"

#include "platform/os/files.h"
#include "platform/os/paths.h"
#include "platform/pictures/delivered_icon.h"
#include "platform/pictures/picture_loader.h"

#include <algorithm>

namespace widgets {

namespace {

// The program's own art may also come in formats that the loader of users' pictures refuses.
QImage readImage(const QString& path)
{
    if (path.endsWith(QLatin1StringView(".png"))) {
        return platform::deliveredPng(path);
    }
    const auto picture = platform::loadPicture(path);
    return picture ? picture->image() : QImage();
}

QString variantPath(const QString& path, int ratio)
{
    const qsizetype dot = path.lastIndexOf(u'.');
    const qsizetype nameStart = path.size() - platform::fileNameOf(path).size();
    const qsizetype end = dot > nameStart ? dot : path.size();
    return path.left(end) + QStringLiteral("@%1x").arg(ratio) + path.mid(end);
}

} // namespace

ScaledPicture::ScaledPicture(const QImage& image)
{
    addVariant(image);
}

ScaledPicture::ScaledPicture(const platform::Picture& picture)
{
    addVariant(picture.image());
}

ScaledPicture ScaledPicture::fromFile(const QString& path, int highestRatio)
{
    ScaledPicture picture(readImage(path));
    const int highest = std::min(highestRatio, platform::kHighestDeliveredRatio);
    for (int ratio = 2; !picture.isNull() && ratio <= highest; ++ratio) {
        const QString variant = variantPath(path, ratio);
        if (!platform::isRegularFile(variant)) {
            continue;
        }
        QImage image = readImage(variant);
        image.setDevicePixelRatio(ratio);
        picture.addVariant(image);
    }
    return picture;
}

QSize ScaledPicture::size() const
{
    if (isNull()) {
        return {0, 0};
    }
    return m_variants.front().deviceIndependentSize().toSize();
}

QImage ScaledPicture::forRatio(double screenRatio) const
{
    for (const QImage& variant : m_variants) {
        if (variant.devicePixelRatio() >= screenRatio) {
            return variant;
        }
    }
    return isNull() ? QImage() : m_variants.back();
}

void ScaledPicture::addVariant(const QImage& image)
{
    if (image.isNull()) {
        return;
    }
    const auto higher = std::find_if(m_variants.begin(), m_variants.end(), [&](const QImage& one) {
        return one.devicePixelRatio() > image.devicePixelRatio();
    });
    m_variants.insert(higher, image);
}

} // namespace widgets
