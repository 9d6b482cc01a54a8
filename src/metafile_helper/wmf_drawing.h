#pragma once

#include <QByteArray>
#include <QImage>

namespace metafile_helper {

// Draws a Windows metafile, placeable or not, at its natural size. Null when it can't be read.
// Needs the application object, for fonts.
[[nodiscard]] QImage drawWmf(QByteArray file);

} // namespace metafile_helper
