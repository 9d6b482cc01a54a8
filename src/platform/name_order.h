#pragma once

#include <QStringView>

namespace platform {

// Order of texts by code point: below, equal to or above zero. Lists pass names whose case is folded.
int compareByCodePoint(QStringView left, QStringView right);

} // namespace platform
