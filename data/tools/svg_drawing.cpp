#include "svg_drawing.h"

#include "files.h"

#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <iostream>
#include <iterator>

namespace tools {

namespace {

bool load(QSvgRenderer& renderer, const std::filesystem::path& path)
{
    const auto bytes = readFile(path);
    if (!bytes) {
        return false;
    }
    QByteArray text;
    text.reserve(static_cast<qsizetype>(bytes->size()));
    std::copy(bytes->begin(), bytes->end(), std::back_inserter(text));
    if (!renderer.load(text)) {
        std::cerr << "make_data: no drawing in " << path << '\n';
        return false;
    }
    return true;
}

QImage draw(QSvgRenderer& renderer, QSize size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(QPointF(0, 0), QSizeF(size)));
    painter.end();
    return image.convertToFormat(QImage::Format_ARGB32);
}

} // namespace

QImage drawSvg(const std::filesystem::path& path, QSize size)
{
    QSvgRenderer renderer;
    return load(renderer, path) ? draw(renderer, size) : QImage();
}

QImage drawSvgScaled(const std::filesystem::path& path, int factor)
{
    QSvgRenderer renderer;
    return load(renderer, path) ? draw(renderer, renderer.defaultSize() * factor) : QImage();
}

QImage drawSvgTurned(const std::filesystem::path& path, QSize canvas, double degrees, QRgb ground)
{
    QSvgRenderer renderer;
    if (!load(renderer, path)) {
        return {};
    }
    QImage image(canvas, QImage::Format_RGB32);
    image.fill(ground);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(canvas.width() / 2.0, canvas.height() / 2.0);
    painter.rotate(degrees);
    const QSizeF size = renderer.defaultSize();
    renderer.render(&painter, QRectF(QPointF(-size.width() / 2, -size.height() / 2), size));
    return image;
}

} // namespace tools
