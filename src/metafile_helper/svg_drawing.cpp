#include "metafile_helper/svg_drawing.h"

#include <QPainter>
#include <QSvgRenderer>

namespace metafile_helper {

QImage drawSvg(const QByteArray& svg, const QRectF& area, QSize size)
{
    QSvgRenderer renderer;
    if (svg.isEmpty() || !renderer.load(svg)) {
        return {};
    }
    renderer.setViewBox(area);
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) {
        return {};
    }
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(image.rect()));
    return image;
}

} // namespace metafile_helper
