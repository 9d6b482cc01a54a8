#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <vector>

namespace platform {

struct TrayEntry {
    int command = 0;
    QString caption; // a separator has none
};

struct TrayRequest {
    QString tip;
    std::vector<TrayEntry> entries; // of the menu of the right button; the first is its default
    std::function<void()> doubleClicked;
    std::function<void(int command)> chosen;
};

// An icon of the program among the desktop's notifications. It goes with the object.
class TrayIcon {
public:
    TrayIcon() = default;
    virtual ~TrayIcon() = default;
    TrayIcon(const TrayIcon&) = delete;
    TrayIcon& operator=(const TrayIcon&) = delete;
};

class Tray {
public:
    virtual ~Tray() = default;

    // Null where the desktop has no place for it.
    [[nodiscard]] virtual std::unique_ptr<TrayIcon> add(TrayRequest request) = 0;
};

// The desktop's, or the one that a test put in its place.
[[nodiscard]] Tray& tray();

class ScopedTray {
public:
    explicit ScopedTray(Tray& replacement);
    ~ScopedTray();
    ScopedTray(const ScopedTray&) = delete;
    ScopedTray& operator=(const ScopedTray&) = delete;

private:
    Tray* m_previous;
};

} // namespace platform
