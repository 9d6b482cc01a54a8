#pragma once

#include "platform/pictures/picture.h"

#include "platform/pictures/delivered_icon.h"

#include <QImage>
#include <QSize>
#include <QString>
#include <vector>

namespace widgets {

// A picture in variants for screens of different ratios, all of one size in device-independent
// pixels. Null when it has none.
class ScaledPicture {
public:
    ScaledPicture() = default;
    // One variant; its device pixel ratio tells what it is for.
    ScaledPicture(const QImage& image);              // NOLINT(google-explicit-constructor)
    ScaledPicture(const platform::Picture& picture); // NOLINT(google-explicit-constructor)

    // The file, and beside it the variants "name@2x.ext" and "name@3x.ext" as far as they are there
    // and a screen is sharp enough for them. Null when the file itself can't be read.
    [[nodiscard]] static ScaledPicture fromFile(const QString& path,
                                                int highestRatio = platform::highestScreenRatio());

    [[nodiscard]] bool isNull() const { return m_variants.empty(); }

    // Device-independent pixels; of the variant for the lowest ratio.
    [[nodiscard]] QSize size() const;

    // The variant for the lowest ratio that reaches the screen's, else the one for the highest. The
    // image carries its ratio.
    [[nodiscard]] QImage forRatio(double screenRatio) const;

    void addVariant(const QImage& image);

    bool operator==(const ScaledPicture&) const = default;

private:
    std::vector<QImage> m_variants; // by rising ratio
};

} // namespace widgets
