#include "metafile_helper/wmf_drawing.h"

#include "metafile_helper/drawing_size.h"
#include "metafile_helper/svg_drawing.h"
#include "metafile_helper/wmf_frame.h"

#include <cstdio>
#include <libwmf/api.h>
#include <libwmf/svg.h>

namespace metafile_helper {

namespace {

constexpr double kDotsAnInch = 96;

QRectF areaOf(const wmfD_Rect& rectangle)
{
    return QRectF(QPointF(rectangle.TL.x, rectangle.TL.y), QPointF(rectangle.BR.x, rectangle.BR.y));
}

// What the picture shows: as the file says, else all that it holds.
std::optional<WmfFrame> frameOf(wmfAPI* api, const QRectF& contents,
                                std::span<const std::byte> file)
{
    if (const auto frame = wmfFrame(file)) {
        return frame;
    }
    unsigned width = 0;
    unsigned height = 0;
    if (wmf_display_size(api, &width, &height, kDotsAnInch, kDotsAnInch) != wmf_E_None ||
        width == 0 || height == 0) {
        return std::nullopt;
    }
    return WmfFrame{drawnSize(width, height), contents};
}

QByteArray playedSvg(wmfAPI* api, wmf_svg_t* drawing, QSize size)
{
    drawing->width = unsigned(size.width());
    drawing->height = unsigned(size.height());
    drawing->flags |= WMF_SVG_INLINE_IMAGES;
    drawing->out = wmf_stream_create(api, nullptr);
    if (drawing->out == nullptr || wmf_play(api, 0, &drawing->bbox) != wmf_E_None) {
        return {};
    }
    char* text = nullptr;
    unsigned long length = 0;
    wmf_stream_destroy(api, drawing->out, &text, &length);
    return QByteArray(text, qsizetype(length));
}

// The library fits all that a file holds, and no other area, into the size that it is given. So it
// gets the size of the contents at the picture's scale, and the picture is cut out of the result.
QImage play(wmfAPI* api, std::span<const std::byte> file)
{
    wmf_svg_t* drawing = WMF_SVG_GetData(api);
    if (drawing == nullptr || wmf_scan(api, 0, &drawing->bbox) != wmf_E_None) {
        return {};
    }
    const QRectF contents = areaOf(drawing->bbox);
    const auto frame = frameOf(api, contents, file);
    if (!frame || contents.isEmpty() || frame->area.isEmpty()) {
        return {};
    }
    const double scaleX = frame->size.width() / frame->area.width();
    const double scaleY = frame->size.height() / frame->area.height();
    const QSize played = drawnSize(contents.width() * scaleX, contents.height() * scaleY);
    const double playedX = played.width() / contents.width();
    const double playedY = played.height() / contents.height();
    const QRectF shown((frame->area.left() - contents.left()) * playedX,
                       (frame->area.top() - contents.top()) * playedY,
                       frame->area.width() * playedX, frame->area.height() * playedY);
    return drawSvg(playedSvg(api, drawing, played), shown, frame->size);
}

} // namespace

QImage drawWmf(QByteArray file)
{
    wmfAPI* api = nullptr;
    wmfAPI_Options options{};
    options.function = wmf_svg_function;
    constexpr unsigned long kFlags =
        WMF_OPT_FUNCTION | WMF_OPT_IGNORE_NONFATAL | WMF_OPT_NO_ERROR | WMF_OPT_NO_DEBUG;
    if (wmf_api_create(&api, kFlags, &options) != wmf_E_None) {
        return {};
    }
    auto* bytes = reinterpret_cast<unsigned char*>(file.data());
    if (wmf_mem_open(api, bytes, long(file.size())) != wmf_E_None) {
        return {};
    }
    // The process ends right after this, so the library's memory isn't given back.
    return play(api, std::as_bytes(std::span(file.constData(), std::size_t(file.size()))));
}

} // namespace metafile_helper
