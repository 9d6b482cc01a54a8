#pragma once

#include "platform/pictures/picture.h"

#include <QString>
#include <map>
#include <optional>

namespace thumbs {

// The delivered pictures that a run paints again and again, each loaded once. Lives as long as the
// run, so that the next one sees changed files.
class DeliveredIcons {
public:
    // By name under the program folder; nothing for one that is missing or broken.
    [[nodiscard]] const std::optional<platform::Picture>& icon(const QString& file);

private:
    std::map<QString, std::optional<platform::Picture>> m_icons;
};

} // namespace thumbs
