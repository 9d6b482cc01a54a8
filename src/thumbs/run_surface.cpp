#include "thumbs/run_surface.h"

#include "thumbs/info_bar.h"
#include "thumbs/page_viewport.h"
#include "thumbs/thumbnail_list.h"
#include "widgets/progress_strip.h"

#include <QScrollBar>
#include <algorithm>

namespace thumbs {

namespace {

constexpr base::Colour kPaper = 0xFFFFFF;

} // namespace

RunSurface::RunSurface(ThumbNailList& owner)
    : list(owner)
    , viewport(*new PageViewport(pages, &owner))
    , LbInfo(*new InfoBar(&owner))
    , Gradient(*new widgets::ProgressStrip(&owner))
    , V_Scroll(*new QScrollBar(Qt::Vertical, &owner))
{
}

void RunSurface::layoutFirstPage()
{
    takeFrameColour();
    pages.restart(viewportSize(), list.devicePixelRatioF(), list.ThumbPageColor());
    state.PageWidthNow = pages.stack().pageSize().width();
    state.PageHeightNow = pages.stack().pageSize().height();
    showFirstPage();
}

void RunSurface::layoutFirstSheet(QSize sheet, int left)
{
    pages.restart(viewportSize(), sheet, left, kSheetMargin, list.devicePixelRatioF(), kPaper);
    showFirstPage();
}

void RunSurface::showFirstPage()
{
    viewport.setSheetTop(0);
    followPages();
    viewport.update();
}

void RunSurface::addPage()
{
    pages.addPage();
    ++state.PagesLoaded;
    followPages();
    // An empty page shows at once; behind the last one nothing was in sight yet.
    const QRect place = pages.stack().pageRect(pages.pages() - 1);
    viewport.update(place.translated(viewport.sheetPosition()));
}

void RunSurface::followPages()
{
    const int maximum = pages.stack().scrollMaximum();
    V_Scroll.setRange(0, maximum);
    V_Scroll.setSingleStep(std::max(1, state.grid.cellHeight + kTileGap));
    V_Scroll.setVisible(maximum > 0);
}

void RunSurface::showTop()
{
    if (V_Scroll.maximum() > 0) {
        V_Scroll.setValue(0);
        viewport.setSheetTop(0);
    }
}

void RunSurface::showTile(int page, const TileBox& box)
{
    viewport.updateTile(page, box);
}

void RunSurface::takeFrameColour()
{
    pages.setFrameColour(list.ThumbPage_FrameColor());
    viewport.update();
    list.update();
}

QSize RunSurface::viewportSize() const
{
    return viewport.size();
}

QString RunSurface::infoText() const
{
    return LbInfo.text();
}

void RunSurface::setInfoText(const QString& text)
{
    LbInfo.setText(text);
}

void RunSurface::setHostCaption(const QString& caption)
{
    if (QWidget* host = list.parentWidget()) {
        host->setWindowTitle(caption);
    }
}

} // namespace thumbs
