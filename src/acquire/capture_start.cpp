#include "acquire/capture_start.h"

#include "acquire/frozen_window.h"
#include "core/window_registry.h"
#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"
#include "platform/desktop/screen_grab.h"
#include "platform/desktop/vanishing.h"
#include "platform/desktop/window_manager.h"
#include "widgets/first_touch.h"

#include <QApplication>
#include <QPointer>
#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace acquire {

namespace {

using core::Window;

struct Leaving {
    QPointer<QWidget> window;
    Leave leave;            // how it is to be when the other one has gone
    Leave way;              // how it leaves the screen
    bool isPutAway = false; // by its user, who doesn't expect it back
};

// From the command to the window. It deletes itself at the end.
class CaptureStart : public QObject {
public:
    CaptureStart(Window which, std::vector<Leaving> leaving);
    void begin();

private:
    void clearTheWay();
    void leave() const;
    [[nodiscard]] bool canHideMore() const;
    void grab();
    void end(const std::optional<platform::FrozenDesktop>& frozen);
    void showFrozen(const platform::FrozenDesktop& frozen);
    void comeBack() const;

    Window m_which;
    std::vector<Leaving> m_leaving;
    std::optional<platform::PointerWait> m_hourglass;
};

// Belongs to the window that is kept out of captures, and notes whether its user has turned to it.
class KeptOut : public QObject {
public:
    explicit KeptOut(QWidget& window)
        : QObject(&window)
        , m_window(window)
        , m_touch(window)
    {
    }

    // Of a minimised window nothing is known on Wayland.
    [[nodiscard]] bool mayBeOnScreen() const
    {
        return platform::isOnWayland() && m_window.isVisible() && !m_touch.hasCome();
    }
    [[nodiscard]] QWidget* window() const { return &m_window; }

private:
    QWidget& m_window;
    widgets::FirstTouch m_touch;
};

QPointer<KeptOut>& keptOut()
{
    static QPointer<KeptOut> kept;
    return kept;
}

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

// A desktop alone knows whether a window is minimised, and on Wayland it keeps that to itself.
Leave wayToLeave(Leave leave)
{
    return platform::hasWindowManager() && !platform::isOnWayland() ? leave : Leave::Hidden;
}

// How a window that has been hidden is to be from now on.
void putBack(QWidget& window, Leave leave)
{
    if (leave == Leave::Minimised && platform::isOnWayland()) {
        window.showMinimized();
    } else {
        showActive(window);
    }
}

CaptureStart::CaptureStart(Window which, std::vector<Leaving> leaving)
    : QObject(qApp)
    , m_which(which)
    , m_leaving(std::move(leaving))
{
}

void CaptureStart::begin()
{
    m_hourglass.emplace();
    if (m_leaving.empty()) {
        grab();
    } else {
        clearTheWay();
    }
}

void CaptureStart::clearTheWay()
{
    QWidget* const last = m_leaving.back().window;
    if (last == nullptr) {
        grab();
        return;
    }
    leave();
    platform::whenVanished(*last, *this, [this](bool vanished) {
        if (vanished || !canHideMore()) {
            grab();
            return;
        }
        for (Leaving& leaving : m_leaving) { // nothing is ever minimised here
            leaving.leave = leaving.way = Leave::Hidden;
        }
        clearTheWay();
    });
}

void CaptureStart::leave() const
{
    for (const Leaving& leaving : m_leaving) {
        if (leaving.window != nullptr && leaving.way == Leave::Hidden) {
            leaving.window->hide();
        } else if (leaving.window != nullptr) {
            leaving.window->showMinimized();
        }
    }
}

bool CaptureStart::canHideMore() const
{
    return std::ranges::any_of(m_leaving, [](const Leaving& leaving) {
        return leaving.window != nullptr && leaving.way == Leave::Minimised;
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
    for (const Leaving& leaving : m_leaving) {
        if (leaving.window != nullptr && leaving.way == Leave::Hidden) {
            connect(window, &QObject::destroyed, leaving.window, [leaving] {
                if (!platform::isClosing()) {
                    putBack(*leaving.window, leaving.leave);
                }
            });
        }
    }
}

// On Wayland no program can undo that a window was minimised, but it can show the window anew.
void CaptureStart::comeBack() const
{
    for (const Leaving& leaving : m_leaving) {
        if (leaving.window == nullptr) {
            continue;
        }
        if (leaving.isPutAway) {
            putBack(*leaving.window, leaving.leave);
        } else {
            leaving.window->hide();
            leaving.window->setWindowState(leaving.window->windowState() & ~Qt::WindowMinimized);
            showActive(*leaving.window);
        }
    }
}

std::vector<Leaving> allLeaving(QWidget* window, Leave leave)
{
    std::vector<Leaving> all;
    const KeptOut* const kept = keptOut();
    if (kept != nullptr && kept->window() != window && kept->mayBeOnScreen()) {
        all.push_back({kept->window(), Leave::Minimised, Leave::Hidden, true});
    }
    if (isOnScreen(window)) {
        all.push_back({window, leave, wayToLeave(leave)});
    }
    return all;
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
    underWay() = new CaptureStart(which, allLeaving(leaving, leave)); // the application's
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

void keepOutOfCaptures(QWidget& window)
{
    window.showMinimized();
    delete keptOut();
    keptOut() = new KeptOut(window); // the window's
}

} // namespace acquire
