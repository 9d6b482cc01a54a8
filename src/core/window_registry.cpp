#include "core/window_registry.h"

#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
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

void WindowRegistry::add(const QString& name, Factory factory)
{
    m_factories[name] = std::move(factory);
}

bool WindowRegistry::hasFactory(const QString& name) const
{
    return m_factories.contains(name);
}

QStringList WindowRegistry::names() const
{
    QStringList names;
    for (const auto& [name, factory] : m_factories) {
        names.append(name);
    }
    return names;
}

QWidget* WindowRegistry::find(const QString& name) const
{
    const auto found = m_windows.find(name);
    return found == m_windows.end() ? nullptr : found->second.data();
}

QWidget* WindowRegistry::load(const QString& name)
{
    if (QWidget* loaded = find(name)) {
        return loaded;
    }
    const auto factory = m_factories.find(name);
    if (factory == m_factories.end() || platform::isClosing()) {
        return nullptr;
    }
    QWidget* window = factory->second();
    if (window == nullptr) {
        return nullptr;
    }
    if (window->objectName().isEmpty()) {
        window->setObjectName(name);
    }
    m_windows[name] = window;
    window->installEventFilter(this);
    return window;
}

QWidget* WindowRegistry::show(const QString& name, ShowMode mode)
{
    const QPointer<QWidget> window = load(name);
    if (window == nullptr) {
        return nullptr;
    }
    if (mode == ShowMode::Modeless) {
        window->show();
        window->raise();
        return window;
    }
    const QPointer<QWidget> owner = window->parentWidget();
    const platform::PointerPause pause;
    QEventLoop loop;
    window->setWindowModality(Qt::ApplicationModal);
    window->show();
    window->activateWindow();
    // A closing program hides its windows, so watching the window is enough to end the wait.
    while (window != nullptr && window->isVisible() && !platform::isClosing()) {
        loop.processEvents(QEventLoop::WaitForMoreEvents);
    }
    giveActivityBack(owner);
    return window;
}

void WindowRegistry::hide(const QString& name)
{
    if (QWidget* window = find(name)) {
        window->hide();
    }
}

void WindowRegistry::unload(const QString& name)
{
    const QPointer<QWidget> window = find(name);
    if (window == nullptr) {
        return;
    }
    window->close();
    // A window that refused or doesn't listen to its close event still has to go.
    if (window != nullptr && find(name) == window) {
        forget(window);
    }
}

void WindowRegistry::unloadAll(const QStringList& order)
{
    for (const QString& name : order) {
        unload(name);
    }
}

void WindowRegistry::forget(QWidget* window)
{
    for (auto it = m_windows.begin(); it != m_windows.end(); ++it) {
        if (it->second != window) {
            continue;
        }
        const QString name = it->first;
        m_windows.erase(it);
        window->removeEventFilter(this);
        window->hide();
        if (m_watcher) {
            m_watcher(name);
        }
        if (platform::isClosing()) {
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
