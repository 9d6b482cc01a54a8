#include "thumbs/html_preview.h"

#include "thumbs/picture_fit.h"
#include "widgets/colour_conversion.h"

#include <QPainter>
#include <algorithm>

namespace thumbs {

namespace {

constexpr int kMargin = 12;
constexpr int kLineThickness = 2;
constexpr int kTextHeight = 18;
constexpr int kFramePadding = 8;

using widgets::toQColor;

QRect centredIn(const QRect& room, QSize size)
{
    return {room.left() + (room.width() - size.width()) / 2,
            room.top() + (room.height() - size.height()) / 2, size.width(), size.height()};
}

void drawSample(QPainter& painter, const QRect& room, const QImage& sample)
{
    const QSize fit = fitPicture(sample.size(), room.size());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(centredIn(room, fit), sample);
}

void drawText(QPainter& painter, const QRect& room, base::Colour colour, const QString& text)
{
    painter.setPen(toQColor(colour));
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
}

// The words of the navigation in the link colour, the middle one as under the pointer.
void drawNavigation(QPainter& painter, const QRect& room, const ThumbnailProperties& look)
{
    const QString word = QStringLiteral("index");
    const QFontMetrics metrics = painter.fontMetrics();
    const int start = static_cast<int>(kPreviewNavigation.indexOf(word));
    const int left = room.left() + metrics.horizontalAdvance(kPreviewNavigation.left(start));
    const QRect hovered(left, room.top(), metrics.horizontalAdvance(word), room.height());
    drawText(painter, room, look.Html_PageLinkColor, kPreviewNavigation);
    painter.fillRect(hovered, toQColor(look.Html_PageLinkHoverBackColor));
    drawText(painter, hovered, look.Html_PageLinkHoverForeColor, word);
}

} // namespace

MasterPageParts masterPageParts(QSize page, const ThumbnailProperties& look)
{
    MasterPageParts parts;
    const int width = std::max(0, page.width() - 2 * kMargin);
    parts.title = {kMargin, kMargin, width, kTextHeight};
    parts.line = {kMargin, parts.title.bottom() + 5, width, kLineThickness};
    const int thickness = std::max(0, look.Html_ThumbnailBorderThicknes);
    const int side = std::clamp(look.Html_ThumbnailSize + 2 * thickness, 0, width / 2);
    int top = parts.line.bottom() + kMargin;
    for (int row = 0; row < 2; ++row) {
        parts.thumbnails[row] = {kMargin, top, side, side};
        const int left = kMargin + side + kMargin;
        const int textWidth = std::max(0, page.width() - left - kMargin);
        parts.links[row] = {left, top, std::min(textWidth, 90), kTextHeight};
        parts.texts[row] = {left, top + kTextHeight + 2, textWidth, kTextHeight};
        top += side + kMargin;
    }
    return parts;
}

DetailPageParts detailPageParts(QSize page, QSize sample)
{
    DetailPageParts parts;
    const int width = std::max(0, page.width() - 2 * kMargin);
    parts.navigation = {kMargin, kMargin, width, kTextHeight};
    parts.line = {kMargin, parts.navigation.bottom() + 5, width, kLineThickness};
    const int top = parts.line.bottom() + kMargin;
    const QRect room(kMargin, top, width, std::max(0, page.height() - top - kMargin));
    const QSize padding(2 * kFramePadding, 2 * kFramePadding);
    const QSize fit = fitPicture(sample, (room.size() - padding).expandedTo({0, 0}));
    parts.frame = {centredIn(room, fit + padding).left(), top, fit.width() + padding.width(),
                   fit.height() + padding.height()};
    parts.picture = centredIn(parts.frame, fit);
    return parts;
}

void drawMasterPage(QPainter& painter, QSize page, const ThumbnailProperties& look,
                    const QImage& sample)
{
    const MasterPageParts parts = masterPageParts(page, look);
    painter.fillRect(QRect({0, 0}, page), toQColor(look.Html_PageBackcolor));
    drawText(painter, parts.title, look.Html_PageForecolor, QStringLiteral("Web Page"));
    painter.fillRect(parts.line, toQColor(look.Html_PageLineColor));
    for (int row = 0; row < 2; ++row) {
        const QRect& box = parts.thumbnails[row];
        const int border = std::max(0, look.Html_ThumbnailBorderThicknes);
        painter.fillRect(box, toQColor(look.Html_ThumbnailBorderColor));
        drawSample(painter, box.adjusted(border, border, -border, -border), sample);
        const bool hovered = row == 0;
        if (hovered) {
            painter.fillRect(parts.links[row], toQColor(look.Html_PageLinkHoverBackColor));
        }
        drawText(painter, parts.links[row],
                 hovered ? look.Html_PageLinkHoverForeColor : look.Html_PageLinkColor,
                 QStringLiteral("picture_%1.htm").arg(row + 1));
        drawText(painter, parts.texts[row], look.Html_PageForecolor,
                 QStringLiteral("%1 x %2").arg(sample.width()).arg(sample.height()));
    }
}

void drawDetailPage(QPainter& painter, QSize page, const ThumbnailProperties& look,
                    const QImage& sample)
{
    const DetailPageParts parts = detailPageParts(page, sample.size());
    painter.fillRect(QRect({0, 0}, page), toQColor(look.Html_PageBackcolor));
    drawNavigation(painter, parts.navigation, look);
    painter.fillRect(parts.line, toQColor(look.Html_PageLineColor));
    painter.fillRect(parts.frame, toQColor(look.Html_PageFotoframeBorderColor));
    painter.fillRect(parts.frame.adjusted(1, 1, -1, -1),
                     toQColor(look.Html_PageFotoframeBackColor));
    drawSample(painter, parts.picture, sample);
}

} // namespace thumbs
