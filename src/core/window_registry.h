#pragma once

#include "core/window_names.h"

#include <QObject>
#include <QPointer>
#include <functional>
#include <map>
#include <span>
#include <vector>

class QWidget;

namespace core {

enum class ShowMode { Modeless, Modal };

// The single instances of all windows. A window is made by its factory when it is first asked for
// and forgotten when it unloads. Windows without a factory are no error: showing them does nothing,
// so that a command may stand before its window does.
class WindowRegistry : public QObject {
public:
    // The factory makes the window hidden; the registry owns it until it unloads it.
    using Factory = std::function<QWidget*()>;

    void add(Window window, Factory factory);
    [[nodiscard]] bool hasFactory(Window window) const;
    [[nodiscard]] std::vector<Window> withFactory() const; // in the order of unloading

    // The loaded window, made if needed; null without a factory.
    QWidget* load(Window window);
    [[nodiscard]] QWidget* find(Window window) const; // null when it isn't loaded
    [[nodiscard]] bool isLoaded(Window window) const { return find(window) != nullptr; }

    // Shows the window, made if needed. A modal one returns when it was closed or the program
    // closes, and stands under the default pointer. Gives the window, null without a factory or
    // when a modal window has gone.
    QWidget* show(Window window, ShowMode mode = ShowMode::Modeless);
    void hide(Window window);

    // Hides the window, lets it run its unload (its close event), forgets it and deletes it later.
    // One that unloads itself in a handler is there until the handler returns, even where that lets
    // events run.
    void unload(Window window);
    void unload(std::span<const Window> inOrder);
    void unloadAll(); // in the order of their names

    // Called for each window as it unloads; tests record the order.
    void onUnload(std::function<void(Window)> watcher) { m_watcher = std::move(watcher); }

    // Called by a window that closes by itself: forgets it and deletes it later.
    void forget(QWidget* window);

    // Deletes the windows that unloaded since the program began to close. Until then they stay,
    // hidden, because any of them may have a handler on the stack that pumps events.
    void deleteForgotten();

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void deleteLaterForgotten();

    std::map<Window, Factory> m_factories;
    std::map<Window, QPointer<QWidget>> m_windows;
    std::vector<QPointer<QWidget>> m_forgotten;
    bool m_unloading = false;
    std::function<void(Window)> m_watcher;
};

WindowRegistry& windows();

} // namespace core
