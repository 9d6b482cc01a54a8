#pragma once

#include <QIcon>
#include <QImage>
#include <QString>

namespace platform {

// The delivered pictures come for screens of ratio 1, 2 and 3 ("name.png", "name@2x.png" ...).
inline constexpr int kHighestDeliveredRatio = 3;

// The ratio of the sharpest screen, rounded up: variants beyond it needn't be read.
int highestScreenRatio();

// Where a delivered picture has its variant of a ratio: base with ".png", "@2x.png" and so on.
QString deliveredVariant(const QString& base, int ratio);

// A PNG of the program's own art, which the loader of users' pictures refuses; null when the file
// is missing or damaged.
QImage deliveredPng(const QString& path);

// An icon of the delivered toolbar pictures, such as "folder", in the variants that the screens
// need; an empty icon when the file is missing.
QIcon deliveredIcon(const QString& name);

} // namespace platform
