#include "platform/pictures/transfers.h"

#include "platform/pictures/large_image.h"
#include "platform/pictures/picture.h"
#include "platform/pictures/stretch_axis.h"
#include "platform/pictures/stretch_kernels.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace platform {

namespace {

struct Methods {
    AxisMethod horizontal = AxisMethod::Nearest;
    AxisMethod vertical = AxisMethod::Nearest;
};

AxisMethod halfToneMethod(qint64 targetLength, qint64 sourceLength, bool repeats)
{
    if (targetLength < sourceLength) {
        return AxisMethod::Average;
    }
    return repeats ? AxisMethod::Nearest : AxisMethod::Linear;
}

// Pixels are repeated only where both directions allow it: sharp columns in soft rows look broken.
Methods methodsFor(const Area& target, const Area& source, StretchMode mode)
{
    if (mode == StretchMode::ColorOnColor) {
        return {};
    }
    const qint64 targetWidth = std::abs(qint64(target.width));
    const qint64 targetHeight = std::abs(qint64(target.height));
    const qint64 sourceWidth = std::abs(qint64(source.width));
    const qint64 sourceHeight = std::abs(qint64(source.height));
    const bool repeats = (targetWidth < sourceWidth || targetWidth % sourceWidth == 0) &&
                         (targetHeight < sourceHeight || targetHeight % sourceHeight == 0);
    return {halfToneMethod(targetWidth, sourceWidth, repeats),
            halfToneMethod(targetHeight, sourceHeight, repeats)};
}

bool isSurface(const QImage& image)
{
    return !image.isNull() && image.depth() == 32;
}

bool isEmpty(const Area& area)
{
    return area.width == 0 || area.height == 0;
}

bool isBlend(const Methods& methods)
{
    return methods.horizontal != AxisMethod::Nearest || methods.vertical != AxisMethod::Nearest;
}

// A blend notes down the columns of the source as well.
bool isTooLong(const QImage& target, const QImage& source, const Area& sourceArea,
               const Methods& methods)
{
    const qint64 sourceColumns =
        std::min<qint64>(std::abs(qint64(sourceArea.width)), source.width());
    return target.width() > kLongestStretchSide || target.height() > kLongestStretchSide ||
           (isBlend(methods) && sourceColumns > kLongestStretchSide);
}

bool covers(const StretchAxis& columns, const StretchAxis& rows, const QImage& target)
{
    return columns.spans.size() == std::size_t(target.width()) &&
           rows.spans.size() == std::size_t(target.height());
}

void transfer(QImage& target, const StretchAxis& columns, const QImage& source,
              const StretchAxis& rows, const Methods& methods)
{
    if (isBlend(methods)) {
        blendPixels(target, columns, source, rows);
    } else {
        copyPixels(target, columns, source, rows);
    }
}

} // namespace

bool BitBlt(QImage& target, int x, int y, int width, int height, const QImage& source, int sourceX,
            int sourceY)
{
    return StretchBlt(target, {x, y, width, height}, source, {sourceX, sourceY, width, height},
                      StretchMode::ColorOnColor);
}

bool StretchBlt(QImage& target, Area targetArea, const QImage& source, Area sourceArea,
                StretchMode mode)
{
    if (!isSurface(target) || !isSurface(source) || isEmpty(targetArea) || isEmpty(sourceArea)) {
        return false;
    }
    // Holds on to the pixels even where the target is the source or shares with it.
    const QImage from = source.hasAlphaChannel() && !target.hasAlphaChannel()
                            ? Picture(source).flattened()
                            : source;
    const Methods methods = methodsFor(targetArea, sourceArea, mode);
    if (from.isNull() || isTooLong(target, from, sourceArea, methods)) {
        return false;
    }
    const StretchAxis columns =
        mapAxis({targetArea.x, targetArea.width, target.width()},
                {sourceArea.x, sourceArea.width, from.width()}, methods.horizontal);
    const StretchAxis rows =
        mapAxis({targetArea.y, targetArea.height, target.height()},
                {sourceArea.y, sourceArea.height, from.height()}, methods.vertical);
    if (columns.spans.empty() || rows.spans.empty()) {
        return true;
    }
    if (!target.isDetached() && covers(columns, rows, target)) {
        // No pixel of the old surface stays, so copying it for the sake of writing would be vain.
        QImage fresh = unsetImage(target.size(), target.format());
        if (fresh.isNull()) {
            return false;
        }
        target = std::move(fresh);
    }
    transfer(target, columns, from, rows, methods);
    return true;
}

QImage stretched(const QImage& source, Area sourceArea, QSize size, StretchMode mode)
{
    if (!isSurface(source) || size.isEmpty()) {
        return {};
    }
    QImage image = unsetImage(size, source.format());
    const bool whole = sourceArea.x >= 0 && sourceArea.y >= 0 &&
                       QRect(sourceArea.x, sourceArea.y, sourceArea.width, sourceArea.height)
                               .intersected(source.rect())
                               .size() == QSize(sourceArea.width, sourceArea.height);
    if (!whole && !image.isNull()) {
        image.fill(0xFF000000);
    }
    if (!StretchBlt(image, {0, 0, size.width(), size.height()}, source, sourceArea, mode)) {
        return {};
    }
    return image;
}

} // namespace platform
