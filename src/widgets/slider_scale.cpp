#include "widgets/slider_scale.h"

#include "base/numbers.h"

#include <algorithm>

namespace widgets {

int SliderScale::knobPosition(int value) const
{
    if (travel <= 0) {
        return 0;
    }
    const double range = static_cast<double>(maximum) - minimum;
    const double above = static_cast<double>(value) - minimum;
    const auto fromMinimum = std::clamp(base::roundHalfEven(above * travel / range),
                                        std::int64_t{0}, std::int64_t{travel});
    const int position = static_cast<int>(fromMinimum);
    return axis == SliderAxis::Vertical ? travel - position : position;
}

int SliderScale::valueAt(double position) const
{
    if (travel <= 0) {
        return minimum;
    }
    const double inside = std::clamp(position, 0.0, static_cast<double>(travel));
    const double fromMinimum = axis == SliderAxis::Vertical ? travel - inside : inside;
    const double range = static_cast<double>(maximum) - minimum;
    return static_cast<int>(base::roundHalfEven(minimum + range * fromMinimum / travel));
}

} // namespace widgets
