#pragma once

#include "base/colours.h"

#include <QColor>

namespace widgets {

// The colour as the toolkit's; system colours are translated.
[[nodiscard]] QColor toQColor(base::Colour colour);
[[nodiscard]] base::Colour fromQColor(const QColor& colour);

// Black or white, whichever reads better on the background.
[[nodiscard]] QColor legibleOn(const QColor& background);

} // namespace widgets
