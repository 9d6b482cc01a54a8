#include "viewer/dib32.h"

#include "platform/pictures/transfers.h"

#include <QColor>

namespace {

constexpr qint64 kLargestSection = qint64(512) << 20;

} // namespace

bool cDIB32::Create(int width, int height, base::Colour colour)
{
    Destroy();
    if (width < 1 || height < 1 || qint64(width) * height > kLargestSection / 4) {
        return false;
    }
    m_section = QImage(width, height, QImage::Format_RGB32);
    if (m_section.isNull()) {
        return false;
    }
    const base::Colour plain = base::translated(colour);
    m_section.fill(qRgb(static_cast<int>(base::redOf(plain)),
                        static_cast<int>(base::greenOf(plain)),
                        static_cast<int>(base::blueOf(plain))));
    return true;
}

void cDIB32::CreateFromStdPicture(const platform::Picture& picture, bool& result)
{
    result = false;
    if (picture.type() != platform::PictureType::Bitmap) {
        return;
    }
    const QImage pixels = picture.flattened();
    if (pixels.isNull()) {
        return;
    }
    m_section = pixels;
    result = true;
}

bool cDIB32::LoadBlt(const QImage& surface, int x, int y)
{
    if (!hDIB()) {
        return false;
    }
    return platform::BitBlt(m_section, 0, 0, Width(), Height(), surface, x, y);
}

void cDIB32::Stretch(QPainter& target, int dstX, int dstY, int dstWidth, int dstHeight, int srcX,
                     int srcY, int srcWidth, int srcHeight, int /*mode*/, bool& result) const
{
    if (!hDIB()) {
        return;
    }
    result =
        platform::StretchBlt(target, {dstX, dstY, dstWidth, dstHeight}, m_section,
                             {srcX, srcY, srcWidth, srcHeight}, platform::StretchMode::HalfTone);
}
