#include "platform/pictures/transforms.h"

#include "platform/pictures/large_image.h"
#include "platform/pictures/transfers.h"

#include <QtGlobal>

namespace platform {

namespace {

constexpr qint64 kMostPixels = qint64(512) * 1024 * 1024 / 4;
// The viewer counts its sides in 16 bits.
constexpr int kLongestSide = 32767;

bool isPossibleSize(QSize size)
{
    return !size.isEmpty() && size.width() <= kLongestSide && size.height() <= kLongestSide &&
           qint64(size.width()) * size.height() <= kMostPixels;
}

QImage copiedFrom(const QImage& image, Area source)
{
    if (image.isNull()) {
        return {};
    }
    QImage copy = unsetImage(image.size(), image.format());
    const Area whole{0, 0, image.width(), image.height()};
    if (copy.isNull() || !StretchBlt(copy, whole, image, source)) {
        return {};
    }
    return copy;
}

} // namespace

QImage flippedTopToBottom(const QImage& image)
{
    return copiedFrom(image, {0, image.height() - 1, image.width(), -image.height()});
}

QImage flippedLeftToRight(const QImage& image)
{
    return copiedFrom(image, {image.width() - 1, 0, -image.width(), image.height()});
}

QImage mirrored(const QImage& image, Half kept)
{
    QImage result = unsetImage(image.size(), image.format());
    if (result.isNull()) {
        return {};
    }
    const int height = image.height();
    const int half = image.width() / 2;
    const int keptWidth = image.width() - half;
    const int keptLeft = kept == Half::Left ? 0 : half;
    const int otherLeft = kept == Half::Left ? keptWidth : 0;
    // The outermost column of the kept half is the one that the other half ends with.
    const int outermost = kept == Half::Left ? half - 1 : image.width() - 1;
    if (!BitBlt(result, keptLeft, 0, keptWidth, height, image, keptLeft, 0)) {
        return {};
    }
    const bool isWhole = half == 0 || StretchBlt(result, {otherLeft, 0, half, height}, image,
                                                 {outermost, 0, -half, height});
    return isWhole ? result : QImage();
}

QImage scaledTo(const QImage& image, QSize size)
{
    if (image.isNull() || !isPossibleSize(size)) {
        return {};
    }
    QImage result = unsetImage(size, image.format());
    const Area whole{0, 0, image.width(), image.height()};
    if (result.isNull() || !StretchBlt(result, {0, 0, size.width(), size.height()}, image, whole,
                                       StretchMode::HalfTone)) {
        return {};
    }
    return result;
}

} // namespace platform
