#pragma once

#include "platform/desktop/tray.h"

namespace platform {

// The tray of the desktop that the program runs on.
class QtTray : public Tray {
public:
    [[nodiscard]] std::unique_ptr<TrayIcon> add(TrayRequest request) override;
};

} // namespace platform
