#include "thumbs/thumbnail_list.h"

#include "core/constants.h"
#include "platform/os/system_memory.h"
#include "thumbs/accessible_tiles.h"
#include "thumbs/frame_layout.h"
#include "thumbs/gallery_run.h"
#include "thumbs/info_bar.h"
#include "thumbs/page_limit.h"
#include "thumbs/page_viewport.h"
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
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    thumbs::installAccessibleTiles();
    makeParts();
    m_files.setPattern(core::kPicturePattern);
    m_files.onPathChange([this] { followPathChange(); });
    m_sheet.setFrameColour(m_values.ThumbPage_FrameColor);
    showInfoColours();
    layoutParts();
}

void ThumbNailList::makeParts()
{
    m_viewport = new thumbs::PageViewport(m_sheet, this);
    m_viewport->setObjectName("ThumbOuterFrame");
    m_viewport->setAccessibleName("Thumbnails");
    m_infoBar = new thumbs::InfoBar(this);
    m_infoBar->setObjectName("LbInfo");
    m_strip = new widgets::ProgressStrip(this);
    m_strip->setObjectName("Gradient");
    m_strip->setAccessibleName("Progress");
    m_scroll = new QScrollBar(Qt::Vertical, this);
    m_scroll->setObjectName("V_Scroll");
    m_scroll->setAccessibleName("Thumbnail pages");
    m_scroll->setRange(0, 0);
    m_scroll->hide();
    connect(m_scroll, &QScrollBar::valueChanged, this,
            [this](int value) { m_viewport->setSheetTop(-value); });
    connect(m_viewport, &thumbs::PageViewport::pagePressed, this, &ThumbNailList::pressPage);
    connect(m_viewport, &thumbs::PageViewport::pageDoubleClicked, this,
            &ThumbNailList::doubleClickPage);
}

void ThumbNailList::layoutParts()
{
    thumbs::FrameParts parts;
    parts.barHeight = m_infoBar->sizeHint().height();
    parts.stripHeight = kStripHeight;
    parts.scrollWidth = m_scroll->sizeHint().width();
    parts.barVisible = m_values.InfobarVisible;
    const thumbs::FrameLayout layout = thumbs::layoutFrame(size(), parts);
    m_infoBar->setGeometry(layout.bar);
    m_strip->setGeometry(layout.strip);
    m_viewport->setGeometry(layout.viewport);
    m_scroll->setGeometry(layout.scroll);
    m_scroll->setPageStep(layout.viewport.height());

    m_sheet.stack().followViewport(layout.viewport.size());
    m_sheet.stack().raiseSheet(thumbs::leastSheetHeight(layout.viewport.height()));
    followPages();
    const int scrolled = m_scroll->value();
    m_viewport->setSheetLeft(thumbs::kFrameMargin);
    m_viewport->setSheetTop(scrolled > 0 ? -scrolled : thumbs::kFrameMargin);
}

QString ThumbNailList::path() const
{
    return m_files.path();
}

void ThumbNailList::setPath(const QString& folder)
{
    m_files.setPath(folder);
    pathWritten();
}

void ThumbNailList::setPathFrom(const platform::FileList& list)
{
    m_files.setPathFrom(list);
    pathWritten();
}

int ThumbNailList::ThumbnailsPerPage()
{
    const thumbs::ViewportMeasure measure =
        thumbs::measureViewport(viewportSize(), m_values.ThumbNailSize);
    m_state.ThumbCellSize = measure.cellSize;
    m_state.PageColumns = measure.columns;
    return measure.tilesPerPage;
}

int ThumbNailList::ThumbnailPagesNeeded()
{
    m_state.ThumbsPerPage = ThumbnailsPerPage();
    return thumbs::fullPages(m_files.count(), m_state.ThumbsPerPage);
}

void ThumbNailList::Makegallery()
{
    thumbs::GalleryRun(*this).run();
}

void ThumbNailList::ResetLoading()
{
    m_selection = {};
    m_state.ThumbTable.resize(0);
    stopRunningLoop();
    m_sheet.destroyExtraPages();
    m_viewport->update();
    m_state.IsLoading = true;
    m_state.CancelLoading = false;
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
    if (m_printLayout) {
        m_printLayout(*this);
    }
}

void ThumbNailList::PrintPicture()
{
    m_state.IsPrinting = true;
    PrintPreview();
}

void ThumbNailList::setPrintLayout(std::function<void(ThumbNailList&)> layout)
{
    m_printLayout = std::move(layout);
}

void ThumbNailList::writeProperties(thumbs::PropertyBag& bag)
{
    thumbs::writeProperties(m_values, bag);
    m_changed = false;
}

void ThumbNailList::readProperties(const thumbs::PropertyBag& bag)
{
    m_values = thumbs::readProperties(bag);
    m_files.setPath(m_values.Path);
    takeFrameColour();
    m_sheet.setFirstPageColour(m_values.ThumbPageColor, {});
    showInfoColours();
    m_infoBar->setVisible(m_values.InfobarVisible);
    layoutParts();
    m_viewport->update();
    m_changed = false;
}

core::ProgressStrip& ThumbNailList::Gradient()
{
    return *m_strip;
}

QSize ThumbNailList::viewportSize() const
{
    return m_viewport->size();
}

QString ThumbNailList::infoText() const
{
    return m_infoBar->text();
}

void ThumbNailList::setInfoText(const QString& text)
{
    m_infoBar->setText(text);
}

void ThumbNailList::layoutFirstPage()
{
    takeFrameColour();
    m_sheet.restart(viewportSize(), devicePixelRatioF(), m_values.ThumbPageColor);
    m_viewport->setSheetTop(0);
    followPages();
    m_viewport->update();
}

void ThumbNailList::addPage()
{
    m_sheet.addPage();
    ++m_state.PagesLoaded;
    followPages();
    // An empty page shows at once; behind the last one nothing was in sight yet.
    const QRect place = m_sheet.stack().pageRect(m_sheet.pages() - 1);
    m_viewport->update(place.translated(m_viewport->sheetPosition()));
}

void ThumbNailList::followPages()
{
    const int maximum = m_sheet.stack().scrollMaximum();
    m_scroll->setRange(0, maximum);
    m_scroll->setSingleStep(std::max(1, m_state.grid.cellHeight + thumbs::kTileGap));
    m_scroll->setVisible(maximum > 0);
}

void ThumbNailList::showTop()
{
    if (m_scroll->maximum() > 0) {
        m_scroll->setValue(0);
        m_viewport->setSheetTop(0);
    }
}

void ThumbNailList::showTile(int page, const thumbs::TileBox& box)
{
    m_viewport->updateTile(page, box);
}

// What no part covers: the place of a scroll bar that isn't needed.
void ThumbNailList::paintEvent(QPaintEvent* event)
{
    QPainter(this).fillRect(event->rect(), widgets::toQColor(m_sheet.frameColour()));
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
    if (m_scroll->isVisible()) {
        QCoreApplication::sendEvent(m_scroll, event);
    }
    event->accept();
}

void ThumbNailList::takeFrameColour()
{
    m_sheet.setFrameColour(m_values.ThumbPage_FrameColor);
    m_viewport->update();
    update();
}

void ThumbNailList::showInfoColours()
{
    m_infoBar->setColours(m_values.InfoBackColor, m_values.InfoForeColor);
}

void ThumbNailList::pathWritten()
{
    m_values.Path = m_files.path();
    m_changed = true;
    if (m_values.AutoUpdateOnPathchange) {
        Makegallery();
    }
}

void ThumbNailList::followPathChange()
{
    emit ThumbPathChange(m_files.path());
}

void ThumbNailList::stopRunningLoop()
{
    if (m_state.IsLoading) {
        m_state.CancelLoading = true;
    }
}

void ThumbNailList::written(WriteEffect effect)
{
    switch (effect) {
    case WriteEffect::None:
        break;
    case WriteEffect::FrameColour:
        takeFrameColour();
        break;
    case WriteEffect::PageColour:
        m_sheet.setFirstPageColour(m_values.ThumbPageColor, tilesOfFirstPage());
        m_viewport->update();
        break;
    case WriteEffect::InfoColours:
        showInfoColours();
        break;
    case WriteEffect::InfoVisibility:
        m_infoBar->setVisible(m_values.InfobarVisible);
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
    for (int k = 0; k < m_state.ThumbTable.rows(); ++k) {
        const thumbs::TileRow* row = m_state.ThumbTable.filledRow(k);
        if (row != nullptr && row->page == 0) {
            boxes.push_back(row->box.grown(1));
        }
    }
    return boxes;
}
