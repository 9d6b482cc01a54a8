// How a picture reaches the viewer: the field, the routing, stepping and the slide show.

#include "base/numbers.h"
#include "core/constants.h"
#include "core/state.h"
#include "files/display_pipeline.h"
#include "platform/desktop/pointer.h"
#include "platform/os/file_list.h"
#include "shell/main_window.h"
#include "viewer/own_format_show.h"
#include "viewer/picture_viewer.h"
#include "widgets/progress_strip.h"

namespace {

constexpr base::Colour kReadingColour = 0xC0C0C0;

} // namespace

void Form1::setModi()
{
    platform::setPointer(platform::Pointer::Default);
    m_viewer->Refresh();
}

void Form1::nextpic()
{
    m_pipeline->nextpic();
}

void Form1::prevpic()
{
    m_pipeline->prevpic();
}

void Form1::SlideNext()
{
    m_pipeline->SlideNext();
}

void Form1::SlidePrevp()
{
    m_pipeline->SlidePrevp();
}

void Form1::start_slideshow()
{
    m_pipeline->start_slideshow();
}

void Form1::stop_slideshow()
{
    m_pipeline->stop_slideshow();
}

void Form1::display_pic()
{
    m_pipeline->display_pic();
}

void Form1::openPsd(const QString& path)
{
    viewer::showOwnFormat(*this, path);
}

void Form1::Np(const QString& folder)
{
    // A folder with more files than the count can hold keeps the count before.
    const int files = platform::countFiles(folder, core::kPicturePattern);
    PictureCount = base::narrow16(files).value_or(PictureCount);
}

void Form1::ChangePath()
{
    Np(core::state().CurrentFolder);
}

void Form1::goEnter()
{
    m_pipeline->goEnter();
}

void Form1::clickXiala()
{
    m_pipeline->clickXiala();
}

// The keys act on what the user has just opened.
void Form1::openFromField(void (Form1::*open)())
{
    (this->*open)();
    if (!m_unloaded) {
        m_viewer->giveFocus();
    }
}

void Form1::showReadingProgress(double fraction)
{
    m_gradient->fillAtOnce(fraction, kReadingColour);
}
