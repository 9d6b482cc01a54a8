#include "metafile_helper/emf_drawing.h"

#include "metafile_helper/drawing_size.h"
#include "metafile_helper/svg_drawing.h"

#include <cstdlib>
#include <emf2svg.h>

namespace metafile_helper {

namespace {

QByteArray svgOf(QByteArray& file, QSize size)
{
    generatorOptions options{};
    options.emfplus = true;
    options.svgDelimiter = true;
    options.imgWidth = size.width();
    options.imgHeight = size.height();
    char* text = nullptr;
    std::size_t length = 0;
    // What was drawn before an error counts, as long as the text is whole.
    static_cast<void>(emf2svg(file.data(), std::size_t(file.size()), &text, &length, &options));
    const QByteArray svg(text, qsizetype(length));
    std::free(text);
    return svg;
}

} // namespace

QImage drawEmf(QByteArray file)
{
    const auto size = emfSize(std::as_bytes(std::span(file.constData(), std::size_t(file.size()))));
    if (!size) {
        return {};
    }
    return drawSvg(svgOf(file, *size), QRectF(QPointF(0, 0), QSizeF(*size)), *size);
}

} // namespace metafile_helper
