#pragma once

#include <QByteArray>
#include <QImage>

namespace metafile_helper {

// Draws an enhanced metafile at its natural size. Null when it can't be read. Needs the application
// object, for fonts.
[[nodiscard]] QImage drawEmf(QByteArray file);

} // namespace metafile_helper
