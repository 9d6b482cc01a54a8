#include "shell/preferences/thumbnail_choice.h"

#include "core/browser_pane.h"
#include "core/main_menus.h"
#include "core/services.h"

#include <QScopedValueRollback>
#include <utility>

namespace preferences {

void ThumbnailChoice::chooseSize(int entry)
{
    m_size = entry;
    endRun();
}

void ThumbnailChoice::chooseColours(int entry)
{
    m_colours = entry;
    endRun();
}

void ThumbnailChoice::apply()
{
    if (m_isApplying) {
        return;
    }
    const QScopedValueRollback<bool> applying(m_isApplying, true);
    while (m_size || m_colours) {
        applyOne();
    }
}

void ThumbnailChoice::endRun()
{
    core::BrowserPane* const pane = core::services().browserPane;
    if (m_isApplying && pane != nullptr) {
        pane->stopThumbnails();
    }
}

void ThumbnailChoice::applyOne()
{
    core::MainMenus* const menus = core::services().menus;
    if (menus == nullptr) {
        m_size.reset();
        m_colours.reset();
    } else if (m_size) {
        menus->ThumbNailSize(*std::exchange(m_size, std::nullopt));
    } else {
        menus->ThumbNailColor(*std::exchange(m_colours, std::nullopt));
    }
}

} // namespace preferences
