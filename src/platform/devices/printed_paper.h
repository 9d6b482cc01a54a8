#pragma once

#include "platform/devices/printers.h"

#include <QMarginsF>
#include <array>
#include <cstdint>

namespace platform {

inline constexpr double kMillimetresInInch = 25.4;

// The papers that go by a name, upright and in millimetres.
struct PaperRow {
    const char* caption;
    std::int16_t width;
    std::int16_t height;
    Paper paper;
};
inline constexpr std::array kNamedPapers{
    PaperRow{"A5", 148, 210, Paper::A5},
    PaperRow{"A4", 210, 297, Paper::A4},
    PaperRow{"A3", 297, 420, Paper::A3},
};
inline constexpr std::size_t kA4 = 1; // which counts where none was chosen

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
