#pragma once

#include "platform/desktop/tray.h"

#include <optional>
#include <utility>

namespace support {

// A tray that shows nothing and that a test clicks. It is in place while it lives.
class FakeTray : public platform::Tray {
public:
    bool exists = true;
    std::optional<platform::TrayRequest> icon; // what stands in it

    std::unique_ptr<platform::TrayIcon> add(platform::TrayRequest request) override
    {
        if (!exists) {
            return nullptr;
        }
        icon = std::move(request);
        return std::make_unique<Icon>(*this);
    }

private:
    class Icon : public platform::TrayIcon {
    public:
        explicit Icon(FakeTray& tray)
            : m_tray(tray)
        {
        }
        ~Icon() override { m_tray.icon.reset(); }

    private:
        FakeTray& m_tray;
    };

    platform::ScopedTray m_inPlace{*this};
};

} // namespace support
