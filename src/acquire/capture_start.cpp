#include "acquire/capture_start.h"

#include "acquire/frozen_window.h"
#include "core/window_registry.h"
#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"
#include "platform/desktop/screen_grab.h"
#include "platform/desktop/vanishing.h"
#include "platform/desktop/window_manager.h"

#include <QApplication>
#include <QPointer>
#include <optional>
#include <utility>

namespace acquire {

namespace {

using core::Window;

// From the command to the window. It deletes itself at the end.
class CaptureStart : public QObject {
public:
    CaptureStart(Window which, QWidget* leaving, Leave leave);
    void begin();

private:
    void clearTheWay();
    void hideLeaving();
    void grab();
    void end(const std::optional<platform::FrozenDesktop>& frozen);
    void showFrozen(const platform::FrozenDesktop& frozen);
    void comeBack();

    Window m_which;
    QPointer<QWidget> m_leaving;
    Leave m_leave;
    std::optional<platform::PointerWait> m_hourglass;
};

QPointer<CaptureStart>& underWay()
{
    static QPointer<CaptureStart> start;
    return start;
}

bool isOnScreen(const QWidget* window)
{
    return window != nullptr && window->isVisible() && !window->isMinimized();
}

void showActive(QWidget& window)
{
    window.show();
    window.activateWindow();
}

// A modal window takes the clicks and keys of all others, Escape too. The tray still tells of
// clicks.
bool isBelowModalWindow()
{
    return QApplication::activeModalWidget() != nullptr;
}

CaptureStart::CaptureStart(Window which, QWidget* leaving, Leave leave)
    : QObject(qApp)
    , m_which(which)
    , m_leaving(isOnScreen(leaving) ? leaving : nullptr)
    , m_leave(platform::hasWindowManager() ? leave : Leave::Hidden)
{
}

void CaptureStart::begin()
{
    m_hourglass.emplace();
    if (m_leaving != nullptr) {
        clearTheWay();
    } else {
        grab();
    }
}

void CaptureStart::clearTheWay()
{
    if (m_leave == Leave::Hidden) {
        m_leaving->hide();
    } else {
        m_leaving->showMinimized();
    }
    platform::whenVanished(*m_leaving, *this, [this](bool vanished) {
        if (vanished || m_leaving == nullptr || m_leave == Leave::Hidden) {
            grab();
        } else {
            m_leave = Leave::Hidden; // nothing is ever minimised here
            clearTheWay();
        }
    });
}

// An answer may take as long as its user does, who goes on working meanwhile, so the hourglass goes
// before it is there.
void CaptureStart::grab()
{
    platform::screenGrab().take(
        *this, [this](const std::optional<platform::FrozenDesktop>& frozen) { end(frozen); });
    m_hourglass.reset();
}

void CaptureStart::end(const std::optional<platform::FrozenDesktop>& frozen)
{
    if (underWay() != this) {
        return; // a second answer
    }
    underWay() = nullptr;
    deleteLater();
    if (platform::isClosing()) {
        return;
    }
    if (frozen && !isBelowModalWindow()) {
        showFrozen(*frozen);
    } else {
        comeBack();
    }
}

void CaptureStart::showFrozen(const platform::FrozenDesktop& frozen)
{
    QWidget* const window = core::windows().load(m_which);
    if (auto* const over = dynamic_cast<FrozenWindow*>(window)) {
        over->cover(frozen);
    }
    core::windows().show(m_which);
    if (m_leaving != nullptr && m_leave == Leave::Hidden) {
        connect(window, &QObject::destroyed, m_leaving, [leaving = m_leaving] {
            if (!platform::isClosing()) {
                showActive(*leaving);
            }
        });
    }
}

// On Wayland no program can undo that a window was minimised, but it can show the window anew.
void CaptureStart::comeBack()
{
    if (m_leaving != nullptr) {
        m_leaving->hide();
        m_leaving->setWindowState(m_leaving->windowState() & ~Qt::WindowMinimized);
        showActive(*m_leaving);
    }
}

bool isBusy()
{
    return underWay() != nullptr || core::windows().isLoaded(Window::frmCapture) ||
           core::windows().isLoaded(Window::frmGetColor);
}

void start(Window which, QWidget* leaving, Leave leave)
{
    if (isBusy() || isBelowModalWindow() || !core::windows().hasFactory(which)) {
        return;
    }
    underWay() = new CaptureStart(which, leaving, leave); // the application's
    underWay()->begin();
}

} // namespace

void startCapture(QWidget* leaving, Leave leave)
{
    start(Window::frmCapture, leaving, leave);
}

void startColourPicker(QWidget* leaving, Leave leave)
{
    start(Window::frmGetColor, leaving, leave);
}

} // namespace acquire
