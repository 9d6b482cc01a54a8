// The mode switches: each inverts its menu check and writes its key at once.

#include "base/twips.h"
#include "core/browser_pane.h"
#include "core/services.h"
#include "core/settings.h"
#include "core/state.h"
#include "core/window_registry.h"
#include "shell/cool_bar.h"
#include "shell/main_window.h"
#include "shell/menus.h"
#include "shell/toolbars.h"
#include "viewer/picture_viewer.h"
#include "widgets/chameleon_button.h"

#include <QAction>

namespace {

constexpr int kBrowseButton = 13;
constexpr int kBestFitButton = 15;
constexpr int kPressedType = 5;
constexpr int kFlatType = 8;
constexpr int kTransparentType = 11;

constexpr int kBarsAutomatic = 0;
constexpr int kBarsOff = 1;

} // namespace

void Form1::OCbrowse()
{
    chameleonButton* button = m_toolbars->button(kBrowseButton);
    m_pictureRestored = false;
    if (!core::state().BrowserShown) {
        core::windows().show(core::Window::frmThumbnaillist);
        core::state().PictureWide = false;
        core::state().BrowserShown = true;
        button->setButtonType(kPressedType);
        setChecks("optTools", 3, nullptr, 0, true);
        if (core::BrowserPane* pane = core::services().browserPane) {
            pane->ThumResize();
        }
        resizeForm();
        core::store(core::kBrowseMode, true);
        return;
    }
    core::windows().hide(core::Window::frmThumbnaillist);
    core::state().PictureWide = true;
    core::state().BrowserShown = false;
    m_viewerExtent = shell::pictureLayoutOnSwitch(measures(), m_viewerExtent);
    placeParts();
    button->setButtonType(kFlatType);
    setChecks("optTools", 3, nullptr, 0, false);
    core::store(core::kBrowseMode, false);
}

void Form1::Smallfrm()
{
    if (!isChecked("optView", 11)) {
        placePanView();
        m_viewer->PanViewRefresh();
        setChecks("optView", 11, "CmdRight", 10, true);
        core::store(core::kPanView, true);
        return;
    }
    m_viewer->PanViewHide();
    setChecks("optView", 11, "CmdRight", 10, false);
    core::store(core::kPanView, false);
}

void Form1::placePanView()
{
    const int viewerTop = m_viewerExtent.top + base::twipsFromPixels(m_client->y());
    const shell::Extent place = shell::panViewPlace(base::twipsFromPixels(width()), viewerTop);
    m_viewer->PanViewShow(place.left, place.top, place.width, place.height, true);
}

void Form1::closePanView()
{
    setChecks("optView", 11, nullptr, 0, true);
    Smallfrm();
}

void Form1::Scrollshow()
{
    const bool on = !isChecked("optView", 12);
    m_viewer->setScrollBars(on ? kBarsAutomatic : kBarsOff);
    setChecks("optView", 12, "CmdRightView", 6, on);
    core::store(core::kScrollBars, on);
}

void Form1::Dragpic()
{
    const bool on = !isChecked("optView", 13);
    m_viewer->setMouseScrolling(on);
    setChecks("optView", 13, "CmdRightView", 7, on);
}

void Form1::fastZoomshow()
{
    const bool on = !isChecked("optView", 15);
    if (on) {
        placeZoomTool();
        core::windows().show(core::Window::fastZoom);
    } else {
        core::windows().hide(core::Window::fastZoom);
    }
    setChecks("optView", 15, "CmdRightView", 8, on);
    core::store(core::kZoomTool, on);
}

// Once only: after that the tool stays where the user drags it.
void Form1::placeZoomTool()
{
    const QWidget* const tool = core::windows().load(core::Window::fastZoom);
    if (tool != nullptr && !tool->testAttribute(Qt::WA_Moved)) {
        moveZoomTool();
    }
}

void Form1::moveZoomTool()
{
    QWidget* const tool = core::windows().load(core::Window::fastZoom);
    if (tool == nullptr) {
        return;
    }
    const shell::Extent place =
        shell::zoomToolPlace(m_viewerExtent, base::twipsFromPixels(tool->width()),
                             base::twipsFromPixels(tool->height()));
    tool->move(base::pixelsFromTwips(place.left), base::pixelsFromTwips(place.top));
}

void Form1::zoomToolClosed()
{
    setChecks("optView", 15, "CmdRightView", 8, false);
}

void Form1::toggleBestFit()
{
    chameleonButton* button = m_toolbars->button(kBestFitButton);
    if (!m_bestFitToggle) {
        button->setButtonType(kPressedType);
        setChecks("optView", 3, "CmdRightView", 4, true);
        m_viewer->Refresh();
        m_viewer->setBestFitMode(true);
        m_bestFitToggle = true;
        core::store(core::kBestFit, true);
        return;
    }
    button->setButtonType(kTransparentType);
    setChecks("optView", 3, "CmdRightView", 4, false);
    m_viewer->setBestFitMode(false);
    m_bestFitToggle = false;
    core::store(core::kBestFit, false);
}

void Form1::setBandShown(int band, bool shown)
{
    m_coolBar->setBandVisible(static_cast<shell::CoolBar::Band>(band), shown);
    setChecks("optTools", 3 + band, nullptr, 0, shown);
    resizeForm();
}

bool Form1::isBandShown(int band) const
{
    return m_coolBar->isBandVisible(static_cast<shell::CoolBar::Band>(band));
}
