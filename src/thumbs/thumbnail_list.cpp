#include "thumbs/thumbnail_list.h"

#include "core/constants.h"
#include "platform/os/system_memory.h"
#include "thumbs/accessible_tiles.h"
#include "thumbs/folder_run.h"
#include "thumbs/frame_layout.h"
#include "thumbs/info_bar.h"
#include "thumbs/page_limit.h"
#include "thumbs/page_viewport.h"
#include "thumbs/tile_maker.h"
#include "widgets/colour_conversion.h"
#include "widgets/progress_strip.h"

#include <QCoreApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

using thumbs::WriteEffect;

namespace {

constexpr int kStripHeight = 3;

} // namespace

ThumbNailList::ThumbNailList(QWidget* parent, Use use)
    : QWidget(parent)
    , m_use(use)
    , m_surface(*this)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    thumbs::installAccessibleTiles();
    nameParts();
    connectParts();
    m_surface.File1.setPattern(core::kPicturePattern);
    m_surface.File1.onPathChange([this] { followPathChange(); });
    m_surface.pages.setFrameColour(m_values.ThumbPage_FrameColor);
    showInfoColours();
    layoutParts();
}

void ThumbNailList::nameParts()
{
    m_surface.viewport.setObjectName("ThumbOuterFrame");
    m_surface.viewport.setAccessibleName("Thumbnails");
    m_surface.LbInfo.setObjectName("LbInfo");
    m_surface.Gradient.setObjectName("Gradient");
    m_surface.Gradient.setAccessibleName("Progress");
    m_surface.V_Scroll.setObjectName("V_Scroll");
    m_surface.V_Scroll.setAccessibleName("Thumbnail pages");
    m_surface.V_Scroll.setRange(0, 0);
    m_surface.V_Scroll.hide();
}

void ThumbNailList::connectParts()
{
    connect(&m_surface.V_Scroll, &QScrollBar::valueChanged, this,
            [this](int value) { m_surface.viewport.setSheetTop(-value); });
    connect(&m_surface.viewport, &thumbs::PageViewport::pagePressed, this,
            &ThumbNailList::pressPage);
    connect(&m_surface.viewport, &thumbs::PageViewport::pageDoubleClicked, this,
            &ThumbNailList::doubleClickPage);
}

void ThumbNailList::layoutParts()
{
    thumbs::FrameParts parts;
    parts.barHeight = m_surface.LbInfo.sizeHint().height();
    parts.stripHeight = kStripHeight;
    parts.scrollWidth = m_surface.V_Scroll.sizeHint().width();
    parts.barVisible = m_values.InfobarVisible;
    const thumbs::FrameLayout layout = thumbs::layoutFrame(size(), parts);
    m_surface.LbInfo.setGeometry(layout.bar);
    m_surface.Gradient.setGeometry(layout.strip);
    m_surface.viewport.setGeometry(layout.viewport);
    m_surface.V_Scroll.setGeometry(layout.scroll);
    m_surface.V_Scroll.setPageStep(layout.viewport.height());

    m_surface.pages.stack().followViewport(layout.viewport.size());
    m_surface.pages.stack().raiseSheet(thumbs::leastSheetHeight(layout.viewport.height()));
    m_surface.followPages();
    const int scrolled = m_surface.V_Scroll.value();
    m_surface.viewport.setSheetLeft(thumbs::kFrameMargin);
    m_surface.viewport.setSheetTop(scrolled > 0 ? -scrolled : thumbs::kFrameMargin);
}

QString ThumbNailList::path() const
{
    return m_surface.File1.path();
}

void ThumbNailList::setPath(const QString& folder)
{
    m_surface.File1.setPath(folder);
    pathWritten();
}

void ThumbNailList::setPathFrom(const platform::FileList& list)
{
    m_surface.File1.setPathFrom(list);
    pathWritten();
}

int ThumbNailList::ThumbnailsPerPage()
{
    const thumbs::ViewportMeasure measure =
        thumbs::measureViewport(m_surface.viewportSize(), m_values.ThumbNailSize);
    m_surface.state.ThumbCellSize = measure.cellSize;
    m_surface.state.PageColumns = measure.columns;
    return measure.tilesPerPage;
}

int ThumbNailList::ThumbnailPagesNeeded()
{
    m_surface.state.ThumbsPerPage = ThumbnailsPerPage();
    return thumbs::fullPages(m_surface.File1.count(), m_surface.state.ThumbsPerPage);
}

void ThumbNailList::Makegallery()
{
    thumbs::TileMaker tiles(*this);
    thumbs::FolderRun(*this, tiles).run();
}

void ThumbNailList::makeGalleryOf(const platform::FileList& list)
{
    m_surface.File1.setPathFrom(list);
    Makegallery();
}

void ThumbNailList::ResetLoading()
{
    m_selection = {};
    m_surface.state.ThumbTable.resize(0);
    stopRunningLoop();
    m_surface.pages.destroyExtraPages();
    m_surface.viewport.update();
    m_surface.state.IsLoading = true;
    m_surface.state.CancelLoading = false;
}

void ThumbNailList::Make_Gradient(core::ProgressStrip& target, double value, double maximum,
                                  base::Colour barColor, std::optional<base::Colour> backColor)
{
    if (backColor) {
        target.setBackground(*backColor);
    }
    if (maximum != 0.0) {
        target.fill(value / maximum, barColor);
    }
}

int ThumbNailList::SystemResources()
{
    return platform::freeMemoryPercent();
}

void ThumbNailList::PrintPreview()
{
    // The list, and its own layout with it, may be gone before this returns.
    if (const auto layout = m_printLayout) {
        layout(*this);
    }
}

void ThumbNailList::PrintPicture()
{
    m_surface.state.IsPrinting = true;
    PrintPreview();
}

void ThumbNailList::setPrintLayout(std::function<void(ThumbNailList&)> layout)
{
    m_printLayout = std::move(layout);
}

const thumbs::TileRow* ThumbNailList::tile(int row) const
{
    return m_surface.state.ThumbTable.filledRow(row);
}

void ThumbNailList::writeProperties(core::PropertyBag& bag)
{
    thumbs::writeProperties(m_values, bag);
    m_changed = false;
}

void ThumbNailList::readProperties(const core::PropertyBag& bag)
{
    m_values = thumbs::readProperties(bag);
    m_surface.File1.setPath(m_values.Path);
    m_surface.takeFrameColour();
    m_surface.pages.setFirstPageColour(m_values.ThumbPageColor, {});
    showInfoColours();
    m_surface.LbInfo.setVisible(m_values.InfobarVisible);
    layoutParts();
    m_surface.viewport.update();
    m_changed = false;
}

// What no part covers: the place of a scroll bar that isn't needed.
void ThumbNailList::paintEvent(QPaintEvent* event)
{
    QPainter(this).fillRect(event->rect(), widgets::toQColor(m_surface.pages.frameColour()));
}

void ThumbNailList::resizeEvent(QResizeEvent* /*event*/)
{
    layoutParts();
    if (isDesignTime()) {
        Makegallery();
    }
}

// The wheel scrolls the pages wherever it turns over them, and never reaches the window behind.
void ThumbNailList::wheelEvent(QWheelEvent* event)
{
    if (m_surface.V_Scroll.isVisible()) {
        QCoreApplication::sendEvent(&m_surface.V_Scroll, event);
    }
    event->accept();
}

void ThumbNailList::showInfoColours()
{
    m_surface.LbInfo.setColours(m_values.InfoBackColor, m_values.InfoForeColor);
}

void ThumbNailList::pathWritten()
{
    m_values.Path = m_surface.File1.path();
    m_changed = true;
    if (m_values.AutoUpdateOnPathchange) {
        Makegallery();
    }
}

void ThumbNailList::followPathChange()
{
    emit ThumbPathChange(m_surface.File1.path());
}

void ThumbNailList::stopRunningLoop()
{
    if (m_surface.state.IsLoading) {
        m_surface.state.CancelLoading = true;
    }
}

void ThumbNailList::written(WriteEffect effect)
{
    switch (effect) {
    case WriteEffect::None:
        break;
    case WriteEffect::FrameColour:
        m_surface.takeFrameColour();
        break;
    case WriteEffect::PageColour:
        m_surface.pages.setFirstPageColour(m_values.ThumbPageColor, tilesOfFirstPage());
        m_surface.viewport.update();
        break;
    case WriteEffect::InfoColours:
        showInfoColours();
        break;
    case WriteEffect::InfoVisibility:
        m_surface.LbInfo.setVisible(m_values.InfobarVisible);
        layoutParts();
        break;
    case WriteEffect::Preset:
        thumbs::applyPreset(m_values, m_values.ThumbPageColorPresets);
        if (m_values.ThumbPageColorPresets > 0 && isDesignTime()) {
            Makegallery();
        }
        break;
    case WriteEffect::Run:
        if (isDesignTime()) {
            Makegallery();
        }
        break;
    case WriteEffect::HtmlPreview:
        if (isDesignTime()) {
            Html_Thumbnail_Preview();
        }
        break;
    case WriteEffect::PrintColumns:
        stopRunningLoop();
        break;
    case WriteEffect::PrintZoom:
        stopRunningLoop();
        PrintPreview();
        break;
    }
}

std::vector<thumbs::TileBox> ThumbNailList::tilesOfFirstPage() const
{
    std::vector<thumbs::TileBox> boxes;
    for (int k = 0; k < m_surface.state.ThumbTable.rows(); ++k) {
        const thumbs::TileRow* row = m_surface.state.ThumbTable.filledRow(k);
        if (row != nullptr && row->page == 0) {
            boxes.push_back(row->box.grown(1));
        }
    }
    return boxes;
}
