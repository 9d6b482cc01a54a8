#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <functional>
#include <map>
#include <vector>

class QWidget;

namespace core {

enum class ShowMode { Modeless, Modal };

// The single instances of all windows, by name. A window is made by its factory when it is first
// asked for and forgotten when it unloads. Names without a factory are no error: showing them does
// nothing, so that a command may stand before its window does.
class WindowRegistry : public QObject {
public:
    // The factory makes the window hidden; the registry owns it until it unloads it.
    using Factory = std::function<QWidget*()>;

    void add(const QString& name, Factory factory);
    [[nodiscard]] bool hasFactory(const QString& name) const;
    [[nodiscard]] QStringList names() const; // of all that have a factory, in order

    // The loaded window, made if needed; null without a factory.
    QWidget* load(const QString& name);
    [[nodiscard]] QWidget* find(const QString& name) const; // null when it isn't loaded
    [[nodiscard]] bool isLoaded(const QString& name) const { return find(name) != nullptr; }

    // Shows the window, made if needed. A modal one returns when it was closed or the program
    // closes, and stands under the default pointer. Gives the window, null without a factory or
    // when a modal window has gone.
    QWidget* show(const QString& name, ShowMode mode = ShowMode::Modeless);
    void hide(const QString& name);

    // Hides the window, lets it run its unload (its close event), forgets it and deletes it later.
    void unload(const QString& name);
    void unloadAll(const QStringList& order);

    // Called with the name of each window as it unloads; tests record the order.
    void onUnload(std::function<void(const QString&)> watcher) { m_watcher = std::move(watcher); }

    // Called by a window that closes by itself: forgets it and deletes it later.
    void forget(QWidget* window);

    // Deletes the windows that unloaded since the program began to close. Until then they stay,
    // hidden, because any of them may have a handler on the stack that pumps events.
    void deleteForgotten();

private:
    bool eventFilter(QObject* watched, QEvent* event) override;

    std::map<QString, Factory> m_factories;
    std::map<QString, QPointer<QWidget>> m_windows;
    std::vector<QPointer<QWidget>> m_forgotten;
    std::function<void(const QString&)> m_watcher;
};

WindowRegistry& windows();

} // namespace core
