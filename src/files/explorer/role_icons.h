#pragma once

#include "files/explorer/explorer_images.h"

#include <QIcon>
#include <map>

namespace files {

// The drawings of the roles, for 16 and for 32 pixels. Each is loaded when it is asked for first.
class RoleIcons {
public:
    // The desktop's own icon where the delivered drawing is missing.
    [[nodiscard]] const QIcon& icon(ImageRole role);

private:
    std::map<ImageRole, QIcon> m_icons;
};

} // namespace files
