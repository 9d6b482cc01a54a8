#pragma once

#include "support/temp_tree.h"

#include <QByteArray>
#include <QColor>
#include <QSize>

namespace smoke {

inline const QColor kRed{200, 40, 40};   // a.jpg
inline const QColor kGreen{40, 160, 60}; // b.jpg
inline const QColor kBlue{30, 60, 220};  // c.pcx
inline constexpr QSize kJpegSize{400, 300};
inline constexpr QSize kPcxSize{64, 32};

[[nodiscard]] QByteArray jpegOf(QColor colour, QSize size);

// One plane, one colour of a palette; 64 x 32 pixels in 1025 bytes.
[[nodiscard]] QByteArray pcxOf(QColor colour);

// Puts the three pictures into a folder "pics" of a tree.
void addSamplePictures(const support::TempTree& tree);

} // namespace smoke
