#pragma once

#include <QByteArray>
#include <QColor>
#include <QSize>

namespace smoke {

[[nodiscard]] QByteArray jpegOf(QColor colour, QSize size);

// One plane, one colour of a palette; 64 x 32 pixels in 1025 bytes.
[[nodiscard]] QByteArray pcxOf(QColor colour);

} // namespace smoke
