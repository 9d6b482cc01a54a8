#include "platform/devices/printed_paper.h"

#include <QtMath>
#include <algorithm>

namespace platform {

namespace {

// The longest paper that a PDF can be of, in the units that count most of it.
constexpr double kMostMillimetres = 100000;
constexpr int kLeastQuality = 10;
constexpr int kMostQuality = 4800;

bool isPaper(QSizeF size)
{
    const auto fits = [](double side) { return side > 0 && side <= kMostMillimetres; };
    return fits(size.width()) && fits(size.height());
}

// What is wide is turned by a quarter for the upright paper, by some printers with the clock and by
// others against it. Within this rim it is whole either way.
QMarginsF turned(const QMarginsF& rim)
{
    const double sides = std::max(rim.top(), rim.bottom());
    const double ends = std::max(rim.left(), rim.right());
    return {sides, ends, sides, ends};
}

} // namespace

QSizeF uprightMillimetres(const PaperSetting& setting)
{
    if (setting.paper == Paper::Custom) {
        return setting.customMillimetres;
    }
    const auto* const found = std::ranges::find(kNamedPapers, setting.paper, &PaperRow::paper);
    const PaperRow& row = found != kNamedPapers.end() ? *found : kNamedPapers[kA4];
    return {double(row.width), double(row.height)};
}

QSizeF lyingMillimetres(const PaperSetting& setting)
{
    const QSizeF upright = uprightMillimetres(setting);
    return setting.orientation == PaperOrientation::Landscape ? upright.transposed() : upright;
}

bool isSensibleQuality(int dotsPerInch)
{
    return dotsPerInch >= kLeastQuality && dotsPerInch <= kMostQuality;
}

PaperMetrics metricsOf(const PaperSetting& setting, const PaperTraits& traits)
{
    const QSizeF size = lyingMillimetres(setting);
    if (!isPaper(size)) {
        return {};
    }
    const bool turns = setting.orientation == PaperOrientation::Landscape;
    const QMarginsF rim = turns ? turned(traits.rim) : traits.rim;
    const int quality = setting.dotsPerInch > 0 ? setting.dotsPerInch : traits.dotsPerInch;
    const auto pixels = [quality](double millimetres) {
        return qRound(millimetres * quality / kMillimetresInInch);
    };
    PaperMetrics metrics{quality, quality, pixels(size.width()), pixels(size.height())};
    metrics.physicalOffsetX = pixels(rim.left());
    metrics.physicalOffsetY = pixels(rim.top());
    metrics.innerWidth =
        std::max(metrics.physicalWidth - metrics.physicalOffsetX - pixels(rim.right()), 0);
    metrics.innerHeight =
        std::max(metrics.physicalHeight - metrics.physicalOffsetY - pixels(rim.bottom()), 0);
    return metrics;
}

} // namespace platform
