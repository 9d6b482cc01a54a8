#pragma once

#include <QByteArray>
#include <QImage>
#include <QRectF>

namespace metafile_helper {

// The part of an SVG text that lies in an area, in units of the text, as an image of that size.
// Transparent where nothing is drawn; null when the text can't be read. Needs the application
// object, for fonts.
[[nodiscard]] QImage drawSvg(const QByteArray& svg, const QRectF& area, QSize size);

} // namespace metafile_helper
