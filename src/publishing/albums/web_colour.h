#pragma once

#include "base/colours.h"

#include <QString>

// A colour as six digits, red first, the way web pages write it. A colour of the system is written
// by its value.
[[nodiscard]] QString Convert_Decimal_To_Hex(base::Colour color);

namespace albums {

// The digits with "#" in front.
[[nodiscard]] QString withNumberSign(const QString& digits);

} // namespace albums
