#include "viewer/fitted_picture.h"

#include "platform/pictures/transfers.h"

namespace viewer {

const QImage& FittedPicture::rendition(const cDIB32& picture, QSize devicePixels,
                                       double deviceRatio)
{
    const QImage& source = picture.hDIBDC();
    if (!m_image.isNull() && m_image.size() == devicePixels &&
        m_image.devicePixelRatio() == deviceRatio && m_pictureKey == source.cacheKey()) {
        return m_image;
    }
    m_pictureKey = source.cacheKey();
    if (devicePixels == source.size() && deviceRatio == 1.0) {
        m_image = source;
        return m_image;
    }
    m_image = QImage(devicePixels, QImage::Format_RGB32);
    const bool drawn =
        platform::StretchBlt(m_image, {0, 0, devicePixels.width(), devicePixels.height()}, source,
                             {0, 0, source.width(), source.height()});
    if (!drawn) {
        m_image = QImage();
        return m_image;
    }
    m_image.setDevicePixelRatio(deviceRatio);
    return m_image;
}

} // namespace viewer
