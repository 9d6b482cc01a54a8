#include "publishing/albums/album_step.h"

#include "core/services.h"
#include "core/working_files.h"
#include "platform/desktop/pump.h"
#include "platform/desktop/screen_flush.h"
#include "platform/os/files.h"
#include "platform/os/paths.h"
#include "platform/pictures/picture_saver.h"
#include "publishing/albums/run_file.h"
#include "thumbs/info_bar.h"
#include "thumbs/page_viewport.h"
#include "thumbs/picture_fit.h"
#include "thumbs/thumbnail_list.h"
#include "widgets/progress_strip.h"

#include <algorithm>
#include <utility>

namespace albums {

using platform::Picture;
using thumbs::FileInRun;

namespace {

QSize sizeOf(const Picture& picture)
{
    return {picture.width(), picture.height()};
}

// On a page of the border's colour, which shows where the picture is transparent.
Picture atOwnSize(const Picture& picture, base::Colour ground)
{
    platform::PictureBox page;
    page.setBackColor(ground);
    page.setPicture(picture);
    return picture.isNothing() ? picture : page.drawnImage();
}

} // namespace

std::vector<core::ProgressStrip*> RunStrips::strips() const
{
    std::vector<core::ProgressStrip*> strips;
    if (m_list != nullptr) {
        strips.push_back(&m_list->surface().Gradient);
    }
    if (core::ProgressStrip* const main = core::services().progress) {
        strips.push_back(main);
    }
    return strips;
}

void RunStrips::showStrip(bool visible)
{
    for (core::ProgressStrip* const strip : strips()) {
        strip->showStrip(visible);
    }
}

void RunStrips::setBackground(base::Colour colour)
{
    for (core::ProgressStrip* const strip : strips()) {
        strip->setBackground(colour);
    }
}

void RunStrips::fill(double fraction, base::Colour colour)
{
    for (core::ProgressStrip* const strip : strips()) {
        strip->fill(fraction, colour);
    }
}

AlbumStep::AlbumStep(ThumbNailList& list, AlbumPlan plan)
    : m_list(list)
    , m_alive(&list)
    , m_files(list.surface().File1)
    , m_jpeg(plan.jpeg)
    , m_endsAtEscape(plan.endsAtEscape)
    , m_pages(std::move(plan.folders), std::move(plan.texts), plan.mode)
    , m_strips(list)
{
}

AlbumStep::~AlbumStep()
{
    clearAway();
    while (m_pages.writeNext()) {
    }
}

thumbs::HostHold AlbumStep::hold() const
{
    return {false, platform::Pointer::HourGlass};
}

core::ProgressStrip* AlbumStep::strip() const
{
    return &m_strips;
}

// The tiles of the screen stay on their pages, but nothing is known of them any more.
std::optional<int> AlbumStep::begin()
{
    thumbs::RunSurface& surface = m_list.surface();
    surface.state.CancelLoading = false;
    surface.state.ThumbTable.resize(0);
    surface.showTop();
    m_scratch = new ScratchPage(&surface.viewport, m_list.Html_ThumbnailBorderColor()); // its child
    watchEscape();
    return m_files.count();
}

void AlbumStep::watchEscape()
{
    if (!m_endsAtEscape) {
        return;
    }
    m_escape = new QShortcut(Qt::Key_Escape, m_list.window());
    QObject::connect(m_escape, &QShortcut::activated, &m_list, &ThumbNailList::stopRunningLoop);
}

bool AlbumStep::takes(const FileInRun& /*file*/) const
{
    return true;
}

bool AlbumStep::needsPicture(const FileInRun& /*file*/) const
{
    return true;
}

std::optional<QSize> AlbumStep::tileRoom() const
{
    return std::nullopt;
}

std::optional<QString> AlbumStep::barText(const FileInRun& file) const
{
    return stageText(m_list.Language(), RunStage::MasterRow, file.index + 1, file.count);
}

void AlbumStep::makeReadyToLoad()
{
    m_list.surface().P_load = m_loaded;
}

// At design time there is no file.
void AlbumStep::make(const FileInRun& file)
{
    if (file.path.isEmpty()) {
        return;
    }
    m_loaded = m_list.surface().P_load;
    const AlbumNames names = albumNames(platform::fileNameOf(file.path), nameRules());
    drawThumbnail();
    saveThumbnail(names);
    saveFullPicture(file, names);
    addRow(file, names);
}

NameRules AlbumStep::nameRules() const
{
    return {m_list.CompressToJPG(), m_list.Compress_NO_GIF()};
}

void AlbumStep::drawThumbnail()
{
    const Picture& picture = m_loaded.picture;
    const int side = std::max(0, m_list.Html_ThumbnailSize());
    const QSize size = thumbs::fitPicture(sizeOf(picture), {side, side});
    m_scratch->draw(picture, size, std::max(0, m_list.Html_ThumbnailBorderThicknes()));
}

void AlbumStep::saveThumbnail(const AlbumNames& names)
{
    const QString target = platform::joinPath(m_pages.folders().album, names.thumbnail);
    if (m_list.CompressToJPG()) {
        compress(m_scratch->page(), target, m_jpeg);
    } else {
        static_cast<void>(platform::savePicture(m_scratch->page(), target));
    }
}

void AlbumStep::saveFullPicture(const FileInRun& file, const AlbumNames& names)
{
    const QString target = platform::joinPath(m_pages.folders().originals, names.full);
    if (names.keepsGif || !m_list.CompressToJPG()) {
        static_cast<void>(platform::copyFile(file.path, target, platform::Flush::No));
        return;
    }
    showStage(RunStage::FullPicture, file.index + 1, file.count);
    const Picture& picture = m_loaded.picture;
    compress(atOwnSize(picture, m_list.Html_ThumbnailBorderColor()), target, m_jpeg);
    platform::removeFile(core::workingFile(core::WorkingFile::AlbumPage));
}

void AlbumStep::addRow(const FileInRun& file, const AlbumNames& names)
{
    const Picture& picture = m_loaded.picture;
    MasterRow row;
    row.detail = names.detail;
    row.thumbnail = names.thumbnail;
    row.size = sizeOf(m_scratch->page());
    row.info = infoLines(names.cleaned, lastChange(file.path), m_pages.mode());
    m_pages.addRow(row, names.full, sizeOf(picture));
}

void AlbumStep::showStage(RunStage stage, int number, int count)
{
    if (const auto text = stageText(m_list.Language(), stage, number, count)) {
        m_list.surface().setInfoText(*text);
        m_list.surface().LbInfo.repaint();
        platform::flushScreen();
    }
}

// The master page, then the pages of the pictures, which are small. Those that are left where the
// program closes or the list goes are written when the step ends.
bool AlbumStep::workOn()
{
    if (m_pagesWritten > 0) {
        showStage(RunStage::DetailPage, m_pagesWritten, m_files.count());
    }
    static_cast<void>(m_pages.writeNext());
    return m_pagesWritten++ < m_pages.rows();
}

void AlbumStep::end()
{
    if (!platform::isClosing()) {
        emit m_list.HtmLGaleryCreated(true, m_files.count(), m_pages.masterPath());
    }
}

std::optional<QString> AlbumStep::closingText(int /*index*/, int /*count*/) const
{
    return doneText(m_list.Language());
}

void AlbumStep::clearAway()
{
    delete m_scratch;
    delete m_escape;
    platform::removeFile(core::workingFile(core::WorkingFile::AlbumPage));
}

void AlbumStep::finished()
{
    clearAway();
    if (!platform::isClosing()) {
        RunFile(m_pages.masterPath());
    }
    if (m_alive != nullptr) {
        m_list.surface().state.IsHtmlRun = false;
    }
}

} // namespace albums
