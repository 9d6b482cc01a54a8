#include "core/window_registry.h"

#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QScopedValueRollback>
#include <QTimer>
#include <QWidget>
#include <utility>

namespace core {

namespace {

// A window manager that sees two windows close at once may leave none active.
void giveActivityBack(QWidget* owner)
{
    if (owner != nullptr && owner->isVisible() && QApplication::activeModalWidget() == nullptr &&
        !platform::isClosing()) {
        owner->activateWindow();
    }
}

} // namespace

void WindowRegistry::add(Window window, Factory factory)
{
    m_factories[window] = std::move(factory);
}

bool WindowRegistry::hasFactory(Window window) const
{
    return m_factories.contains(window);
}

std::vector<Window> WindowRegistry::withFactory() const
{
    std::vector<Window> windows;
    for (const auto& [window, factory] : m_factories) {
        windows.push_back(window);
    }
    return windows;
}

QWidget* WindowRegistry::find(Window window) const
{
    const auto found = m_windows.find(window);
    return found == m_windows.end() ? nullptr : found->second.data();
}

QWidget* WindowRegistry::load(Window window)
{
    if (QWidget* loaded = find(window)) {
        return loaded;
    }
    const auto factory = m_factories.find(window);
    if (factory == m_factories.end() || platform::isClosing()) {
        return nullptr;
    }
    QWidget* made = factory->second();
    if (made == nullptr) {
        return nullptr;
    }
    if (made->objectName().isEmpty()) {
        made->setObjectName(windowName(window));
    }
    m_windows[window] = made;
    made->installEventFilter(this);
    return made;
}

QWidget* WindowRegistry::show(Window window, ShowMode mode)
{
    const QPointer<QWidget> shown = load(window);
    if (shown == nullptr) {
        return nullptr;
    }
    if (mode == ShowMode::Modeless) {
        shown->show();
        shown->raise();
        return shown;
    }
    const QPointer<QWidget> owner = shown->parentWidget();
    const platform::PointerPause pause;
    QEventLoop loop;
    shown->setWindowModality(Qt::ApplicationModal);
    shown->show();
    shown->activateWindow();
    // A closing program hides its windows, so watching the window is enough to end the wait.
    while (shown != nullptr && shown->isVisible() && !platform::isClosing()) {
        loop.processEvents(QEventLoop::WaitForMoreEvents);
    }
    giveActivityBack(owner);
    return shown;
}

void WindowRegistry::hide(Window window)
{
    if (QWidget* loaded = find(window)) {
        loaded->hide();
    }
}

void WindowRegistry::unload(Window window)
{
    const QPointer<QWidget> loaded = find(window);
    if (loaded == nullptr) {
        return;
    }
    {
        const QScopedValueRollback unloading(m_unloading, true);
        loaded->close();
        // A window that refused or doesn't listen to its close event still has to go.
        if (loaded != nullptr && find(window) == loaded) {
            forget(loaded);
        }
    }
    deleteLaterForgotten();
}

// Whoever unloads may be one of the window's own handlers and may let events run afterwards. What
// is to be deleted later is spared by those only if it was said at the handler's level, which that
// of a close event is above.
void WindowRegistry::deleteLaterForgotten()
{
    if (m_unloading || platform::isClosing()) {
        return;
    }
    for (const QPointer<QWidget>& window : std::exchange(m_forgotten, {})) {
        if (window != nullptr) {
            window->deleteLater();
        }
    }
}

void WindowRegistry::unload(std::span<const Window> inOrder)
{
    for (const Window window : inOrder) {
        unload(window);
    }
}

void WindowRegistry::unloadAll()
{
    for (std::size_t place = 0; place < kWindowCount; ++place) {
        unload(static_cast<Window>(place));
    }
}

void WindowRegistry::forget(QWidget* window)
{
    for (auto it = m_windows.begin(); it != m_windows.end(); ++it) {
        if (it->second != window) {
            continue;
        }
        const Window which = it->first;
        m_windows.erase(it);
        window->removeEventFilter(this);
        window->hide();
        if (m_watcher) {
            m_watcher(which);
        }
        if (m_unloading || platform::isClosing()) {
            m_forgotten.emplace_back(window);
        } else {
            window->deleteLater();
        }
        return;
    }
}

void WindowRegistry::deleteForgotten()
{
    // A window may own another one of them.
    for (const QPointer<QWidget>& window : std::exchange(m_forgotten, {})) {
        delete window.data();
    }
}

bool WindowRegistry::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Close) {
        return QObject::eventFilter(watched, event);
    }
    // The window's own handler decides first; only an accepted close unloads.
    watched->removeEventFilter(this);
    auto* window = qobject_cast<QWidget*>(watched);
    const QPointer<QWidget> alive = window;
    watched->event(event);
    if (alive == nullptr) {
        return true;
    }
    if (event->isAccepted()) {
        forget(window);
    } else {
        watched->installEventFilter(this);
    }
    return true;
}

WindowRegistry& windows()
{
    static WindowRegistry instance;
    return instance;
}

} // namespace core
