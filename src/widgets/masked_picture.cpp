#include "widgets/masked_picture.h"

namespace widgets {

namespace {

// Gives every pixel that the mask lets through to the function, and clears the others.
template<class PixelFunction>
QImage throughMask(const QImage& picture, std::optional<base::Colour> mask, PixelFunction change)
{
    QImage result = picture.convertToFormat(QImage::Format_ARGB32);
    result.setDevicePixelRatio(picture.devicePixelRatio());
    for (int y = 0; y < result.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < result.width(); ++x) {
            const QRgb pixel = row[x];
            const bool isMasked =
                mask &&
                base::rgb(static_cast<unsigned>(qRed(pixel)), static_cast<unsigned>(qGreen(pixel)),
                          static_cast<unsigned>(qBlue(pixel))) == (*mask & 0xFFFFFFU);
            row[x] = isMasked ? 0 : change(pixel);
        }
    }
    return result;
}

} // namespace

QImage maskedPicture(const QImage& picture, std::optional<base::Colour> mask, Tint tint)
{
    return throughMask(picture, mask, [tint](QRgb pixel) {
        if (tint == Tint::Colours) {
            return pixel;
        }
        const int grey = greyOf(qRed(pixel), qGreen(pixel), qBlue(pixel));
        return qRgba(grey, grey, grey, qAlpha(pixel));
    });
}

QImage silhouette(const QImage& picture, std::optional<base::Colour> mask, base::Colour colour,
                  Shade shade)
{
    const int red = static_cast<int>(base::redOf(colour));
    const int green = static_cast<int>(base::greenOf(colour));
    const int blue = static_cast<int>(base::blueOf(colour));
    return throughMask(picture, mask, [=](QRgb pixel) {
        const int alpha = shade == Shade::Soft ? qAlpha(pixel) / 3 : qAlpha(pixel);
        return qRgba(red, green, blue, alpha);
    });
}

int greyOf(int red, int green, int blue)
{
    return (30 * red + 59 * green + 11 * blue) / 100;
}

} // namespace widgets
