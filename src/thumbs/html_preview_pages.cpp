#include "thumbs/html_preview.h"
#include "thumbs/page_viewport.h"
#include "thumbs/sample_picture.h"
#include "thumbs/thumbnail_list.h"

#include <QPainter>

namespace {

using DrawPage = void (*)(QPainter&, QSize, const thumbs::ThumbnailProperties&, const QImage&);

void drawOn(thumbs::PageSheet& pages, int page, const thumbs::ThumbnailProperties& look,
            DrawPage draw)
{
    if (platform::PictureBox* surface = pages.surface(page)) {
        QPainter painter(&surface->surface());
        painter.scale(pages.ratio(), pages.ratio());
        draw(painter, pages.stack().pageSize(), look, thumbs::samplePicture());
    }
}

} // namespace

// Presses on the mock pages stay ignored until the next run of thumbnails.
void ThumbNailList::Html_Thumbnail_Preview()
{
    m_surface.state.IsHtmlRun = true;
    m_surface.pages.destroyExtraPages();
    m_surface.layoutFirstPage();
    m_surface.addPage();
    drawOn(m_surface.pages, 0, m_values, &thumbs::drawMasterPage);
    drawOn(m_surface.pages, 1, m_values, &thumbs::drawDetailPage);
    m_surface.viewport.update();
}
