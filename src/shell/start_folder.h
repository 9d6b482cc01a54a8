#pragma once

#include <QString>

namespace shell {

// The folder shown at start: the one in the settings, as it stands there; where they name none, the
// user's picture folder, and where that is missing or holds neither pictures nor visible folders,
// the delivered samples.
QString startFolder();

} // namespace shell
