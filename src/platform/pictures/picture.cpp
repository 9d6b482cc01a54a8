#include "platform/pictures/picture.h"

#include <QPainter>
#include <utility>

namespace platform {

namespace {

// The two formats that transfers and painting handle without a conversion.
QImage normalised(QImage image)
{
    const QImage::Format format =
        image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
    if (image.format() != format) {
        image = std::move(image).convertToFormat(format);
    }
    if (image.devicePixelRatio() != 1.0) {
        image.setDevicePixelRatio(1.0);
    }
    return image;
}

} // namespace

Picture::Picture(QImage image, PictureType type)
{
    if (image.isNull() || type == PictureType::None) {
        return;
    }
    m_image = normalised(std::move(image));
    m_type = m_image.isNull() ? PictureType::None : type;
}

QImage Picture::flattened() const
{
    if (m_image.isNull() || m_image.format() == QImage::Format_RGB32) {
        return m_image;
    }
    QImage flat(m_image.size(), QImage::Format_RGB32);
    if (flat.isNull()) {
        return flat;
    }
    flat.fill(Qt::white);
    QPainter(&flat).drawImage(0, 0, m_image);
    return flat;
}

} // namespace platform
