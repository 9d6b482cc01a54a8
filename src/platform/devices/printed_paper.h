#pragma once

#include "platform/devices/printers.h"

#include <QMarginsF>

namespace platform {

// What a printer is set to.
struct PaperSetting {
    Paper paper = Paper::A4;
    QSizeF customMillimetres;
    PaperOrientation orientation = PaperOrientation::Portrait;
    int dotsPerInch = 0; // 0: the printer's own
};

// What a printer says of a paper: the rim that it can't print on, in millimetres of the upright
// paper, and its own pixels in an inch.
struct PaperTraits {
    QMarginsF rim;
    int dotsPerInch = 0;
};

// As they are asked for; the measures may be nonsense.
[[nodiscard]] QSizeF uprightMillimetres(const PaperSetting& setting);
[[nodiscard]] QSizeF lyingMillimetres(const PaperSetting& setting);

[[nodiscard]] PaperMetrics metricsOf(const PaperSetting& setting, const PaperTraits& traits);

[[nodiscard]] bool isSensibleQuality(int dotsPerInch);

} // namespace platform
