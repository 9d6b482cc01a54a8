#pragma once

#include "core/constants.h"

#include <QString>

namespace core {

// The panels along the bottom edge, which tell of the picture shown.
class StatusBar {
public:
    virtual ~StatusBar() = default;

    virtual void setPanel(Panel panel, const QString& text) = 0;
    [[nodiscard]] virtual QString panel(Panel panel) const = 0;
};

} // namespace core
