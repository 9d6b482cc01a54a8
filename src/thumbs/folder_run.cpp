#include "thumbs/folder_run.h"

#include "core/browser_pane.h"
#include "core/progress_strip.h"
#include "core/services.h"
#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"
#include "platform/os/paths.h"
#include "thumbs/thumbnail_list.h"

namespace thumbs {

namespace {

constexpr base::Colour kProgressColour = base::systemColour(8);
constexpr base::Colour kProgressBackground = 0xE0E0E0;

void enableSplitter(bool enabled)
{
    if (core::BrowserPane* pane = core::services().browserPane) {
        pane->setSplitterEnabled(enabled);
    }
}

} // namespace

FolderRun::FolderRun(ThumbNailList& list, FolderStep& step)
    : m_list(list)
    , m_alive(&list)
    , m_step(step)
    , m_loader(list)
{
}

void FolderRun::run()
{
    ++m_list.surface().state.runs;
    holdHost();
    const std::optional<int> files = m_step.begin();
    if (!files) {
        return;
    }
    m_count = *files;
    if (m_alive != nullptr) {
        showStrip(true);
        walk();
    }
    finish();
}

void FolderRun::holdHost()
{
    const HostHold hold = m_step.hold();
    if (hold.splitter) {
        enableSplitter(false);
    }
    if (hold.pointer) {
        platform::setPointer(*hold.pointer);
    }
    m_list.surface().state.IsLoading = true;
}

void FolderRun::giveHostBack()
{
    const HostHold hold = m_step.hold();
    if (hold.splitter) {
        enableSplitter(true);
    }
    if (hold.pointer) {
        platform::setPointer(platform::Pointer::Default);
    }
    if (m_alive != nullptr) {
        m_list.surface().state.endRun();
    }
}

void FolderRun::showStrip(bool visible)
{
    if (core::ProgressStrip* strip = m_step.strip()) {
        strip->showStrip(visible);
    }
}

// A run that has ended while events ran has put these back.
void FolderRun::holdAgain()
{
    holdHost();
    showStrip(true);
}

void FolderRun::walk()
{
    while (m_index < m_count) {
        if (!platform::pump(m_alive) || m_step.isCancelled(m_list.surface().state)) {
            return;
        }
        holdAgain();
        if (!takeFile()) {
            return;
        }
        showProgress();
        ++m_index;
    }
}

// A strip that is shown again is empty, so that this run's is left as it is where no other has run.
void FolderRun::workOn()
{
    const int runs = m_list.surface().state.runs;
    while (m_step.workOn() && platform::pump(m_alive)) {
        if (m_list.surface().state.runs != runs) {
            holdAgain();
        }
    }
}

// Nothing where the list has no such file (any more).
std::optional<FileInRun> FolderRun::fileNow() const
{
    if (m_list.isDesignTime()) {
        return FileInRun{m_index, m_count, {}};
    }
    const platform::FileList* const kept = m_step.files();
    const platform::FileList& files = kept != nullptr ? *kept : m_list.surface().File1;
    const QString name = files.name(m_index);
    if (name.isEmpty()) {
        return std::nullopt;
    }
    return FileInRun{m_index, m_count, platform::withSeparator(files.path()) + name};
}

// False ends the run: no further file, or the list is gone.
bool FolderRun::takeFile()
{
    const std::optional<FileInRun> file = fileNow();
    if (!file || !m_step.takes(*file)) {
        return false;
    }
    if (!m_step.needsPicture(*file) || load(*file)) {
        make(*file);
    }
    return m_alive != nullptr;
}

// A reader's box lets events run. False: the list is gone, or another run has loaded pictures of
// its own meanwhile and has done this file.
bool FolderRun::load(const FileInRun& file)
{
    const int runs = m_list.surface().state.runs;
    m_step.makeReadyToLoad();
    if (const std::optional<QSize> room = m_step.tileRoom()) {
        m_loader.loadTile(file.path, *room);
    } else {
        loadItself(file.path);
    }
    return m_alive != nullptr && m_list.surface().state.runs == runs;
}

void FolderRun::loadItself(const QString& path)
{
    if (m_step.readsOwnFormats() && FileLoader::isOwnFormat(path)) {
        m_list.openPsd(path);
    } else if (const std::optional<QSize> room = m_step.fileRoom()) {
        m_loader.loadFitting(path, *room);
    } else {
        m_loader.loadWhole(path);
    }
}

void FolderRun::make(const FileInRun& file)
{
    if (const auto text = m_step.barText(file)) {
        m_list.surface().setInfoText(*text);
    }
    m_step.make(file);
}

void FolderRun::showProgress()
{
    if (core::ProgressStrip* strip = m_step.strip()) {
        ThumbNailList::Make_Gradient(*strip, m_index, m_count - 1, kProgressColour,
                                     kProgressBackground);
    }
}

// The host gets everything back, whenever the list has gone.
void FolderRun::finish()
{
    if (m_alive != nullptr) {
        workOn();
    }
    if (m_alive != nullptr) {
        m_step.end();
    }
    giveHostBack();
    if (m_alive != nullptr) {
        tellTheEnd();
    }
    showStrip(false);
}

void FolderRun::tellTheEnd()
{
    if (const auto text = m_step.closingText(m_index, m_count)) {
        m_list.surface().setInfoText(*text);
    }
    m_step.finished();
}

} // namespace thumbs
