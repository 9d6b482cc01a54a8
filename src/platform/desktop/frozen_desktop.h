#pragma once

#include <QImage>
#include <QList>
#include <QRect>
#include <optional>
#include <vector>

namespace platform {

// One screen of a frozen desktop.
struct ScreenPart {
    QRect place;  // on the desktop, in the units by which windows are placed
    QRect pixels; // in the picture

    // Pixels of the picture for one of those units.
    [[nodiscard]] double ratio() const { return double(pixels.width()) / place.width(); }
};

// All screens as they looked at one moment.
struct FrozenDesktop {
    QImage picture; // QImage::Format_RGB32, ratio 1
    std::vector<ScreenPart> screens;
};

// A screen as the toolkit knows it.
struct ScreenFacts {
    QRect place;
    double ratio = 1.0;
};

// A picture in which each screen has its own pixels and begins at the corner of its place, as a
// root window has them. Nothing where no screen is in the picture.
[[nodiscard]] std::optional<FrozenDesktop> frozenByPixels(const QImage& picture,
                                                          const QList<ScreenFacts>& screens);

// A picture of the whole desktop in one scale, whatever the screens have.
[[nodiscard]] std::optional<FrozenDesktop> frozenInOneScale(const QImage& picture,
                                                            const QList<ScreenFacts>& screens);

} // namespace platform
