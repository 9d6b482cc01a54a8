#pragma once

#include "platform/desktop/tray.h"
#include "widgets/strip_window.h"

#include <array>
#include <memory>

namespace acquire {

// The commands of the notification icon; the number of the separator stands twice.
struct CaptureEntry {
    int command;
    const char* caption; // empty for a separator
};
inline constexpr int kCancelEntry = 24576;
inline constexpr int kSeparatorEntry = 24577;
inline constexpr int kCaptureImageEntry = 24578;
inline constexpr int kCaptureColourEntry = 24579;
inline constexpr int kExitEntry = 24580;
inline constexpr std::array kCaptureEntries{
    CaptureEntry{kCancelEntry, "Cancel"},
    CaptureEntry{kSeparatorEntry, ""},
    CaptureEntry{kCaptureImageEntry, "Capture Image"},
    CaptureEntry{kCaptureColourEntry, "Capture Web Color"},
    CaptureEntry{kSeparatorEntry, ""},
    CaptureEntry{kExitEntry, "Exit"},
};

// Puts the capture icon among the desktop's notifications, or its window on a desktop without them.
void showCaptureIcon();

} // namespace acquire

// The notification icon of the screen capture, which is there as long as this window is loaded. The
// window stays hidden unless the desktop has no place for the icon: then its buttons are the
// commands of the icon's menu.
class frmCaputreN : public widgets::StripWindow {
    Q_OBJECT

public:
    frmCaputreN();

    [[nodiscard]] bool isInTray() const { return m_icon != nullptr; }

private:
    void buildControls();
    void addIcon();
    void run(int command);

    std::unique_ptr<platform::TrayIcon> m_icon;
};
