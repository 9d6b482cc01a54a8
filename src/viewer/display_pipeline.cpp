#include "viewer/display_pipeline.h"

#include "base/numbers.h"
#include "core/state.h"
#include "platform/desktop/pump.h"
#include "platform/os/file_list.h"
#include "platform/os/paths.h"

#include <QScopedValueRollback>

namespace viewer {

namespace {

constexpr int kFirstIntervalMs = 5000;
constexpr int kIntervalStepMs = 1000;
constexpr int kShortestIntervalMs = 1000;
constexpr int kLongestIntervalMs = 65000;

} // namespace

DisplayPipeline::DisplayPipeline(DisplayHost& host)
    : m_host(host)
{
    tim_nextpic.setObjectName("tim_nextpic");
    tim_nextpic.setInterval(kFirstIntervalMs);
    QObject::connect(&tim_nextpic, &QTimer::timeout, &tim_nextpic, [this] { tick(); });
}

void DisplayPipeline::nextpic()
{
    step(1);
}

void DisplayPipeline::prevpic()
{
    step(-1);
}

void DisplayPipeline::step(int by)
{
    stop_slideshow();
    platform::FileList* list = m_host.File1();
    if (list == nullptr) {
        return;
    }
    // The cursor has 16 bits; past them the list stays where it is, as it does past its ends.
    const auto selected = base::narrow16(list->listIndex());
    const auto wanted = base::narrow16(std::int64_t(list->listIndex()) + by);
    if (selected && wanted) {
        m_listCursor = *wanted;
        list->setListIndex(m_listCursor);
    }
    m_host.setXiala(selectedPath());
    const QScopedValueRollback opening(m_opening, true);
    m_host.clickXiala();
}

QString DisplayPipeline::selectedPath()
{
    const platform::FileList* list = m_host.File1();
    return list == nullptr ? QString() : platform::withSeparator(list->path()) + list->fileName();
}

void DisplayPipeline::SlideNext()
{
    std::int16_t& index = core::state().SlideIndex;
    index = index < m_host.PictureCount() ? static_cast<std::int16_t>(index + 1) : std::int16_t(0);
}

void DisplayPipeline::SlidePrevp()
{
    std::int16_t& index = core::state().SlideIndex;
    index = index != 0 ? static_cast<std::int16_t>(index - 1) : m_host.PictureCount();
}

void DisplayPipeline::display_pic()
{
    showAndAdvance();
    m_host.focusViewer();
}

void DisplayPipeline::showAndAdvance()
{
    const QScopedValueRollback opening(m_opening, true);
    m_host.clickXiala();
    // Opening may have let events run, so the list is asked for only now.
    if (platform::FileList* list = m_host.File1()) {
        list->setListIndex(core::state().SlideIndex); // fails past the end: the selection stays
        core::state().CurrentFile = selectedPath();
    }
    m_host.copyImage1ToOrgPicture();
    m_host.setXiala(core::state().CurrentFile);
}

void DisplayPipeline::start_slideshow()
{
    display_pic();
    tim_nextpic.start();
    m_host.pressSlideButton(true);
}

void DisplayPipeline::stop_slideshow()
{
    tim_nextpic.stop();
    m_host.pressSlideButton(false);
    core::state().SlideIndex = 0;
}

void DisplayPipeline::toggleSlideShow()
{
    setSlideToggle(!m_slideToggle);
}

void DisplayPipeline::setSlideToggle(bool started)
{
    m_slideToggle = started;
    if (started) {
        start_slideshow();
    } else {
        stop_slideshow();
    }
}

void DisplayPipeline::slower()
{
    if (tim_nextpic.interval() < kLongestIntervalMs) {
        changeInterval(kIntervalStepMs);
    }
}

void DisplayPipeline::faster()
{
    if (tim_nextpic.interval() > kShortestIntervalMs) {
        changeInterval(-kIntervalStepMs);
    }
}

void DisplayPipeline::changeInterval(int byMs)
{
    const bool wasRunning = tim_nextpic.isActive();
    tim_nextpic.stop();
    tim_nextpic.setInterval(tim_nextpic.interval() + byMs);
    if (wasRunning) {
        tim_nextpic.start();
    }
}

void DisplayPipeline::continueAfterFullScreen()
{
    if (tim_nextpic.isActive()) {
        start_slideshow();
        return;
    }
    display_pic();
    stop_slideshow();
}

void DisplayPipeline::tick()
{
    if (platform::isClosing() || m_opening || m_host.isWindowMinimised() ||
        m_host.isModalWindowOpen()) {
        return;
    }
    SlideNext();
    showAndAdvance();
    if (!m_host.isUserTyping()) {
        m_host.focusViewer();
    }
}

QString zoomReadout(int zoomFactor)
{
    return QStringLiteral("      %1%").arg(zoomFactor * 100);
}

} // namespace viewer
