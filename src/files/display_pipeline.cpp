#include "files/display_pipeline.h"

#include "base/numbers.h"
#include "core/browser_pane.h"
#include "core/file_field.h"
#include "core/main_menus.h"
#include "core/picture_display.h"
#include "core/services.h"
#include "core/state.h"
#include "core/viewer.h"
#include "core/work_area.h"
#include "files/routing.h"
#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"
#include "platform/os/file_list.h"
#include "platform/os/paths.h"
#include "platform/pictures/picture_box.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <QWidget>

namespace files {

namespace {

constexpr int kFirstIntervalMs = 5000;
constexpr int kIntervalStepMs = 1000;
constexpr int kShortestIntervalMs = 1000;
constexpr int kLongestIntervalMs = 65000;

core::PictureDisplay& display()
{
    return *core::services().display;
}

core::FileField& field()
{
    return *core::services().field;
}

// The pane's list; null while there is no pane.
platform::FileList* fileList()
{
    core::BrowserPane* pane = core::services().browserPane;
    return pane == nullptr ? nullptr : &pane->File1();
}

QString selectedPath()
{
    const platform::FileList* list = fileList();
    return list == nullptr ? QString() : platform::withSeparator(list->path()) + list->fileName();
}

std::int16_t pictureCount()
{
    return core::services().workArea->pictureCount();
}

const QWidget* mainWindow()
{
    const QWidget* area = core::services().workArea->window();
    return area == nullptr ? nullptr : area->window();
}

bool isWindowMinimised()
{
    const QWidget* window = mainWindow();
    return window != nullptr && window->isMinimized();
}

// In the pane keys walk through folders and tiles, as they write in a field of text.
bool isUserTyping()
{
    const QWidget* window = mainWindow();
    const QWidget* focus = window == nullptr ? nullptr : window->focusWidget();
    const auto* pane = dynamic_cast<const QWidget*>(core::services().browserPane);
    return focus != nullptr && (focus->testAttribute(Qt::WA_InputMethodEnabled) ||
                                (pane != nullptr && pane->isAncestorOf(focus)));
}

} // namespace

DisplayPipeline::DisplayPipeline()
{
    tim_nextpic.setObjectName("tim_nextpic");
    tim_nextpic.setInterval(kFirstIntervalMs);
    QObject::connect(&tim_nextpic, &QTimer::timeout, &tim_nextpic, [this] { tick(); });
}

void DisplayPipeline::goEnter()
{
    const platform::PointerGuard pointer;
    files::goEnter(display(), field(), field().Xiala());
}

void DisplayPipeline::clickXiala()
{
    const platform::PointerGuard pointer;
    files::clickXiala(display(), field(), field().Xiala());
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
    platform::FileList* list = fileList();
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
    field().setXiala(selectedPath());
    const QScopedValueRollback opening(m_opening, true);
    clickXiala();
}

void DisplayPipeline::SlideNext()
{
    std::int16_t& index = core::state().SlideIndex;
    index = index < pictureCount() ? static_cast<std::int16_t>(index + 1) : std::int16_t(0);
}

void DisplayPipeline::SlidePrevp()
{
    std::int16_t& index = core::state().SlideIndex;
    index = index != 0 ? static_cast<std::int16_t>(index - 1) : pictureCount();
}

void DisplayPipeline::display_pic()
{
    showAndAdvance();
    display().viewer().giveFocus();
}

void DisplayPipeline::showAndAdvance()
{
    const QScopedValueRollback opening(m_opening, true);
    clickXiala();
    // Opening may have let events run, so the list is asked for only now.
    if (platform::FileList* list = fileList()) {
        list->setListIndex(core::state().SlideIndex); // fails past the end: the selection stays
        core::state().CurrentFile = selectedPath();
    }
    display().orgPicture().setPicture(display().Image1().picture());
    field().setXiala(core::state().CurrentFile);
}

void DisplayPipeline::start_slideshow()
{
    display_pic();
    tim_nextpic.start();
    core::services().menus->pressSlideButton(true);
}

void DisplayPipeline::stop_slideshow()
{
    tim_nextpic.stop();
    core::services().menus->pressSlideButton(false);
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
    if (platform::isClosing() || m_opening || isWindowMinimised() ||
        QApplication::activeModalWidget() != nullptr) {
        return;
    }
    SlideNext();
    showAndAdvance();
    if (!isUserTyping()) {
        display().viewer().giveFocus();
    }
}

} // namespace files
