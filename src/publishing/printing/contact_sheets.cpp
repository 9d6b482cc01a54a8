#include "publishing/printing/contact_sheets.h"

#include "platform/os/paths.h"
#include "publishing/printing/contact_sheet_paper.h"
#include "publishing/printing/print_resolution.h"
#include "publishing/printing/sheet_layout.h"
#include "thumbs/bar_texts.h"
#include "thumbs/folder_run.h"
#include "thumbs/frame_layout.h"
#include "thumbs/thumbnail_list.h"
#include "widgets/progress_strip.h"

#include <QPointer>
#include <utility>

namespace printing {

namespace {

using thumbs::FileInRun;
using thumbs::GalleryState;

enum class LaidOutFor { Zoom, Paper };

// A picture for every file on sheets shaped like paper, and on the paper itself.
class SheetMaker : public thumbs::FolderStep {
public:
    SheetMaker(ThumbNailList& list, LaidOutFor use);

    [[nodiscard]] thumbs::HostHold hold() const override { return {false, std::nullopt}; }
    [[nodiscard]] core::ProgressStrip* strip() const override;
    [[nodiscard]] bool isCancelled(const GalleryState& state) const override;
    std::optional<int> begin() override;
    [[nodiscard]] bool takes(const FileInRun& file) const override;
    [[nodiscard]] bool needsPicture(const FileInRun& /*file*/) const override { return true; }
    [[nodiscard]] std::optional<QSize> tileRoom() const override { return std::nullopt; }
    [[nodiscard]] std::optional<QSize> fileRoom() const override;
    [[nodiscard]] bool readsOwnFormats() const override { return m_use == LaidOutFor::Paper; }
    [[nodiscard]] std::optional<QString> barText(const FileInRun& file) const override;
    void make(const FileInRun& file) override;
    void end() override;
    [[nodiscard]] std::optional<QString> closingText(int index, int count) const override;

    [[nodiscard]] bool isWhole() const { return m_isWhole; }

private:
    void layOut();
    [[nodiscard]] bool isOvertaken(const GalleryState& state) const { return state.runs != m_run; }
    [[nodiscard]] bool isOver() const;
    void turnTo(int page);
    [[nodiscard]] thumbs::LoadedPicture takeLoaded();
    void drawOnSheet(const platform::Picture& picture, const QRectF& place);

    const LaidOutFor m_use;
    QPointer<ThumbNailList> m_list;
    ContactSheetPaper m_paper;
    platform::PaperMetrics m_metrics;
    SheetLayout m_layout;
    QSize m_shown; // what a sheet of the layout is on the screen
    QString m_folder;
    QString m_title; // of the document
    bool m_isPrinting = false;
    bool m_isWhole = false; // all files were done and handed over
    int m_run = 0;          // the list's number of it
    int m_page = 0;
};

SheetMaker::SheetMaker(ThumbNailList& list, LaidOutFor use)
    : m_use(use)
    , m_list(&list)
{
}

core::ProgressStrip* SheetMaker::strip() const
{
    return m_list != nullptr ? &m_list->surface().Gradient : nullptr;
}

// The sheets of a run that another one has overtaken are gone.
bool SheetMaker::isCancelled(const GalleryState& state) const
{
    return FolderStep::isCancelled(state) || isOvertaken(state) || m_paper.isRefused();
}

std::optional<int> SheetMaker::begin()
{
    thumbs::RunSurface& surface = m_list->surface();
    m_isPrinting = surface.state.IsPrinting;
    m_run = surface.state.runs;
    m_folder = surface.File1.path();
    m_title = QStringLiteral("Contact sheets of ") + platform::fileNameOf(m_folder);
    m_list->ResetLoading();
    surface.state.IsPrintPreview = true;
    if (m_isPrinting) {
        storePrintResolution();
    }
    layOut();
    return surface.File1.count();
}

void SheetMaker::layOut()
{
    thumbs::RunSurface& surface = m_list->surface();
    GalleryState& state = surface.state;
    m_paper.setQuality(m_list->PrintResolution().toString());
    m_metrics = m_paper.metrics();
    const QSize viewport = surface.viewportSize();
    if (state.PageHeightNow == 0) {
        state.PageHeightNow = viewport.height() - 2 * thumbs::kSheetMargin;
    }
    state.PageWidthNow = sheetWidth(state.PageHeightNow, m_metrics).value_or(state.PageWidthNow);
    const QSize page(state.PageWidthNow, state.PageHeightNow);
    const int columns = m_list->Print_NrThumbCols();
    const SheetLayout shown =
        layOutSheet(page, m_list->Print_Zoomfactor(), columns, viewport.width());
    m_shown = shown.sheet;
    m_layout = m_use == LaidOutFor::Paper ? layOutPaper(page, columns) : shown;
    surface.layoutFirstSheet(shown.sheet, shown.left);
}

// A folder that was put in the place of the first one isn't mixed into its sheets.
bool SheetMaker::takes(const FileInRun& file) const
{
    return platform::folderOf(file.path) == m_folder;
}

std::optional<QSize> SheetMaker::fileRoom() const
{
    const QRectF room(QPointF(), pictureRoom(m_layout).expandedTo({1, 1}));
    const QSizeF shown = samePlace(room, m_layout.sheet, m_shown).size();
    const QSize onScreen = (shown * m_list->surface().pages.ratio()).toSize().expandedTo({1, 1});
    if (!m_isPrinting) {
        return onScreen;
    }
    const QRectF printed = onPaper(room, m_layout.sheet, m_metrics);
    return onScreen.expandedTo(pixelsWorthPrinting(printed.size(), m_metrics));
}

// Written before the sheet is turned: the first picture of a sheet still tells the one before.
std::optional<QString> SheetMaker::barText(const FileInRun& file) const
{
    return thumbs::runningText(m_list->Language(), {m_page, file.index, file.count});
}

// A document that begins lets events run, so paper comes last.
void SheetMaker::make(const FileInRun& file)
{
    const thumbs::LoadedPicture loaded = takeLoaded();
    const thumbs::TilePlace place = sheetPlace(m_layout, file.index);
    turnTo(place.page);
    if (isOver()) {
        return;
    }
    thumbs::RunSurface& surface = m_list->surface();
    surface.setHostCaption(QStringLiteral("Can_Print = ") +
                           QLatin1StringView(m_isPrinting ? "True" : "False"));
    const platform::Picture picture = loaded.picture;
    const QRectF where = pictureRect(m_layout, place, loaded.naturalSize);
    if (picture.isNothing() || where.isEmpty()) {
        return;
    }
    drawOnSheet(picture, samePlace(where, m_layout.sheet, m_shown));
    if (m_isPrinting) {
        m_paper.draw(picture, onPaper(where, m_layout.sheet, m_metrics), m_title);
    } else {
        surface.P_load.thinOut();
    }
}

// What stays is drawn in place of a file that can't be loaded.
thumbs::LoadedPicture SheetMaker::takeLoaded()
{
    thumbs::LoadedPicture& loaded = m_list->surface().P_load;
    return m_use == LaidOutFor::Paper ? std::exchange(loaded, {}) : loaded;
}

bool SheetMaker::isOver() const
{
    return m_list == nullptr || isCancelled(m_list->surface().state);
}

void SheetMaker::turnTo(int page)
{
    while (m_page < page && !isOver()) {
        ++m_page;
        m_list->surface().addPage();
        if (m_isPrinting) {
            m_paper.turnPage(m_title);
        }
    }
}

void SheetMaker::drawOnSheet(const platform::Picture& picture, const QRectF& place)
{
    thumbs::RunSurface& surface = m_list->surface();
    surface.pages.paintPicture(m_page, picture, place.topLeft(), place.size());
    const QRect touched = place.toAlignedRect();
    surface.showTile(m_page,
                     {touched.left(), touched.top(), touched.right() + 1, touched.bottom() + 1});
}

void SheetMaker::end()
{
    const bool wasOver = isOver();
    m_isWhole = m_paper.end() && !wasOver;
    if (m_list != nullptr) {
        m_list->surface().P_load.thinOut();
    }
}

std::optional<QString> SheetMaker::closingText(int index, int count) const
{
    if (isOvertaken(m_list->surface().state)) {
        return std::nullopt;
    }
    return thumbs::closingText(m_list->Language(), {m_page, index, count});
}

bool run(ThumbNailList& list, LaidOutFor use)
{
    SheetMaker step(list, use);
    thumbs::FolderRun(list, step).run();
    return step.isWhole();
}

} // namespace

bool makeContactSheets(ThumbNailList& list)
{
    return run(list, LaidOutFor::Zoom);
}

bool makeSheetsForPaper(ThumbNailList& list)
{
    return run(list, LaidOutFor::Paper);
}

} // namespace printing
