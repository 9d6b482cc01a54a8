#include "platform/desktop/frozen_desktop.h"

namespace platform {

namespace {

QRect desktopOf(const QList<ScreenFacts>& screens)
{
    QRect desktop;
    for (const ScreenFacts& screen : screens) {
        desktop |= screen.place;
    }
    return desktop;
}

void addPart(FrozenDesktop& frozen, const QRect& place, const QRectF& pixels)
{
    const QRect inPicture = pixels.toRect() & frozen.picture.rect();
    if (!inPicture.isEmpty() && !place.isEmpty()) {
        frozen.screens.push_back({place, inPicture});
    }
}

std::optional<FrozenDesktop> unlessEmpty(FrozenDesktop frozen)
{
    return frozen.screens.empty() ? std::nullopt : std::optional(std::move(frozen));
}

} // namespace

std::optional<FrozenDesktop> frozenByPixels(const QImage& picture,
                                            const QList<ScreenFacts>& screens)
{
    FrozenDesktop frozen{picture.convertToFormat(QImage::Format_RGB32), {}};
    for (const auto& [place, ratio] : screens) {
        addPart(frozen, place, QRectF(place.topLeft(), QSizeF(place.size()) * ratio));
    }
    return unlessEmpty(std::move(frozen));
}

std::optional<FrozenDesktop> frozenInOneScale(const QImage& picture,
                                              const QList<ScreenFacts>& screens)
{
    const QRect desktop = desktopOf(screens);
    if (desktop.isEmpty()) {
        return std::nullopt;
    }
    const double across = double(picture.width()) / desktop.width();
    const double down = double(picture.height()) / desktop.height();
    FrozenDesktop frozen{picture.convertToFormat(QImage::Format_RGB32), {}};
    for (const ScreenFacts& screen : screens) {
        const QRect place = screen.place.translated(-desktop.topLeft());
        addPart(frozen, screen.place,
                QRectF(place.x() * across, place.y() * down, place.width() * across,
                       place.height() * down));
    }
    return unlessEmpty(std::move(frozen));
}

} // namespace platform
