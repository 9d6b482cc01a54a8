// The main window's layout: resize, and where the work area's parts go.

#include "base/twips.h"
#include "core/browser_pane.h"
#include "core/services.h"
#include "core/state.h"
#include "core/window_registry.h"
#include "shell/cool_bar.h"
#include "shell/kept_maximised.h"
#include "shell/main_window.h"
#include "shell/menus.h"
#include "shell/status_bar.h"
#include "viewer/picture_viewer.h"
#include "widgets/first_touch.h"
#include "widgets/progress_strip.h"

#include <QMenuBar>
#include <QResizeEvent>
#include <QScopeGuard>

namespace {

using base::pixelsFromTwips;
using base::twipsFromPixels;

constexpr int kStripHeight = 24;   // pixels, Picture4
constexpr int kGradientHeight = 3; // pixels, along the strip's upper edge

// Edges are converted, not lengths, so that neighbours leave no gap.
QRect toPixels(const shell::Extent& extent)
{
    const int left = pixelsFromTwips(extent.left);
    const int top = pixelsFromTwips(extent.top);
    return {left, top, pixelsFromTwips(extent.left + extent.width) - left,
            pixelsFromTwips(extent.top + extent.height) - top};
}

} // namespace

void Form1::form1paint()
{
    resizeForm();
}

void Form1::resizeForm()
{
    if (m_resizing || m_unloaded) {
        return;
    }
    m_resizing = true;
    const auto done = qScopeGuard([this] { m_resizing = false; });
    m_maximised->keep();
    placeStrips();
    if (!isChecked("optView", 11)) {
        m_viewer->PanViewUnload();
    }
    placeParts();
}

void Form1::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) {
        resizeForm();
    }
}

// A desktop may give the window its size after the modes were restored, even after it was shown. As
// long as nobody has touched anything, they come out as if they had been restored at that size.
void Form1::placeRestoredWindows()
{
    if (isChecked("optView", 11)) {
        placePanView();
    }
    if (isChecked("optView", 15)) {
        moveZoomTool();
    }
}

shell::WindowMeasures Form1::measures() const
{
    const core::BrowserPane* pane = core::services().browserPane;
    shell::WindowMeasures measures;
    measures.innerWidth = twipsFromPixels(m_client->width());
    measures.innerHeight = twipsFromPixels(m_client->height());
    measures.outerWidth = measures.innerWidth + shell::kFrameWidth;
    measures.left = 0;
    measures.coolBarTop = twipsFromPixels(m_coolBar->y());
    measures.coolBarHeight = twipsFromPixels(m_coolBar->height());
    measures.stripHeight = twipsFromPixels(m_picture4->height());
    measures.paneWidth = pane != nullptr ? pane->widthTwips() + shell::kViewerUnderPane : 0;
    measures.aviWidth = twipsFromPixels(m_aviHost->width());
    return measures;
}

void Form1::placeStrips()
{
    QMenuBar* bar = m_menus->bar();
    const int barHeight =
        bar->heightForWidth(width()) > 0 ? bar->heightForWidth(width()) : bar->sizeHint().height();
    bar->setGeometry(0, 0, width(), barHeight);
    m_client->setGeometry(0, barHeight, width(), height() - barHeight);
    m_coolBar->setReservedWidth(kAviSize.width());
    m_coolBar->move(0, 0);
    m_coolBar->layOut(m_client->width());
    m_picture4->setGeometry(0, m_client->height() - kStripHeight, m_client->width(), kStripHeight);
    m_stateBar->setGeometry(0, 0, m_picture4->width(), kStripHeight);
    m_gradient->setGeometry(0, 0, m_picture4->width(), kGradientHeight);
    m_gradient->raise();
}

void Form1::placeParts()
{
    const shell::WindowMeasures now = measures();
    const shell::BrowseLayout browse = shell::browseLayout(now);
    const bool pictureAlone = core::state().PictureWide;
    const bool starting = pictureAlone && m_pictureRestored && !m_touch->hasCome();
    if (starting) {
        m_viewerExtent = shell::pictureLayoutOnSwitch(now, m_viewerExtent);
    }
    m_viewerExtent =
        pictureAlone ? shell::pictureLayoutOnResize(now, m_viewerExtent) : browse.viewer;
    if (!pictureAlone || starting) {
        m_aviHost->setGeometry(pixelsFromTwips(browse.aviLeft),
                               pixelsFromTwips(browse.aviTop) +
                                   (shell::CoolBar::kRowHeight - kAviSize.height()) / 2,
                               kAviSize.width(), kAviSize.height());
    }
    m_viewer->setGeometry(toPixels(m_viewerExtent));
    if (auto* pane = dynamic_cast<QWidget*>(core::services().browserPane)) {
        const QRect place = toPixels(m_viewerExtent);
        pane->setGeometry(0, place.top(), pane->width(), place.height());
    }
}

int Form1::coolBarHeightTwips() const
{
    return twipsFromPixels(m_coolBar->height());
}

int Form1::viewerHeightTwips() const
{
    return m_viewerExtent.height;
}

void Form1::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    resizeForm();
    if (event->spontaneous() && !m_touch->hasCome()) {
        placeRestoredWindows();
    }
    if (core::BrowserPane* pane = core::services().browserPane;
        pane != nullptr && core::state().BrowserShown) {
        pane->ThumResize();
    }
}

void Form1::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    resizeForm();
}
