#include "shell/screenshot_request.h"

#include "core/browser_pane.h"
#include "core/services.h"
#include "core/state.h"
#include "core/window_registry.h"
#include "files/explorer/folder_tree.h"

#include <QPixmap>
#include <QTimerEvent>
#include <QWidget>

namespace shell {

namespace {

constexpr int kPollInterval = 100; // milliseconds

} // namespace

ScreenshotRequest::ScreenshotRequest()
    : m_file(qEnvironmentVariable("VISTARA_SCREENSHOT"))
{
    if (!m_file.isEmpty()) {
        startTimer(kPollInterval);
    }
}

void ScreenshotRequest::timerEvent(QTimerEvent* event)
{
    QWidget* const window = core::windows().find(core::Window::Form1);
    const core::BrowserPane* pane = core::services().browserPane;
    if (window == nullptr || pane == nullptr || !files::folderTree().isOpen() ||
        (core::state().BrowserShown && !pane->isFirstFolderShown())) {
        return;
    }
    killTimer(event->timerId());
    window->grab().save(m_file, "PNG");
    window->close();
}

} // namespace shell
