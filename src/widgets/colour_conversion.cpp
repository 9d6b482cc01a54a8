#include "widgets/colour_conversion.h"

#include <cmath>

namespace widgets {

namespace {

// Light that a channel sends out, 0 to 1, by the sRGB curve.
double linearLight(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

} // namespace

QColor toQColor(base::Colour colour)
{
    const base::Colour value = base::translated(colour);
    return QColor(static_cast<int>(base::redOf(value)), static_cast<int>(base::greenOf(value)),
                  static_cast<int>(base::blueOf(value)));
}

base::Colour fromQColor(const QColor& colour)
{
    return base::rgb(static_cast<unsigned>(colour.red()), static_cast<unsigned>(colour.green()),
                     static_cast<unsigned>(colour.blue()));
}

QColor legibleOn(const QColor& background)
{
    const double luminance = 0.2126 * linearLight(background.redF()) +
                             0.7152 * linearLight(background.greenF()) +
                             0.0722 * linearLight(background.blueF());
    // Contrast to white and to black is the same where (1.05 / (L + 0.05)) equals ((L + 0.05) /
    // 0.05).
    return luminance > 0.179 ? QColor(Qt::black) : QColor(Qt::white);
}

} // namespace widgets
