#include "thumbs/delivered_icons.h"

#include "platform/os/paths.h"
#include "platform/pictures/picture_loader.h"

namespace thumbs {

const std::optional<platform::Picture>& DeliveredIcons::icon(const QString& file)
{
    const auto found = m_icons.find(file);
    if (found != m_icons.end()) {
        return found->second;
    }
    return m_icons[file] = platform::loadPicture(platform::appFile(file));
}

} // namespace thumbs
