#include "files/explorer/percent.h"

#include "base/numbers.h"

namespace files {

std::int16_t PercentOf(std::int64_t part, std::int64_t whole)
{
    if (whole < 1) {
        return 0;
    }
    if (part > whole) {
        return 100;
    }
    const double percent = static_cast<double>(part) * 100.0 / static_cast<double>(whole);
    return base::roundTo16(percent).value_or(0);
}

} // namespace files
