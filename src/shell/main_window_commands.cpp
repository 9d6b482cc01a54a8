// Operations of the main window that other windows call: thumbnails' look, paste, save, full
// screen.

#include "core/browser_pane.h"
#include "core/constants.h"
#include "core/services.h"
#include "core/settings.h"
#include "core/thumbnail_entries.h"
#include "editing/clipboard_commands.h"
#include "editing/editor_handoff.h"
#include "editing/save_pipeline.h"
#include "files/display_pipeline.h"
#include "platform/os/registry.h"
#include "shell/main_window.h"
#include "shell/menus.h"
#include "shell/status_bar.h"

#include <QAction>

namespace {

const QString kSizeMenu = QStringLiteral("MnuThumbsize");
const QString kPresetMenu = QStringLiteral("ThumbnailColorPreset");
const QString kHiveSection = QStringLiteral("Thumbnail");

} // namespace

void Form1::checkOnly(const QString& array, int index)
{
    for (int i = 0; QAction* entry = m_menus->entry(array, i); ++i) {
        entry->setChecked(i == index);
    }
}

void Form1::ThumbNailSize(int menuIndex)
{
    if (menuIndex < 0 || menuIndex >= core::kThumbnailSizes) {
        return;
    }
    checkOnly(kSizeMenu, menuIndex);
    const int size = (menuIndex + 1) * core::kThumbnailSizeStep;
    if (core::BrowserPane* pane = core::services().browserPane) {
        pane->setThumbnailSize(size);
        const int pages = pane->thumbnailPagesNeeded();
        const int perPage = pane->thumbnailsPerPage();
        // A pane that has no room yet has nothing to tell.
        if (perPage > 0) {
            m_stateBar->setPanel(
                core::Panel::Message,
                QStringLiteral("Pages %1  Thumbnails per page %2").arg(pages).arg(perPage));
        }
        pane->rebuildThumbnails();
    }
    core::store(core::kThumbnailSize, size);
    platform::saveSetting(kHiveSection, QStringLiteral("Size"), QString::number(size));
}

void Form1::ThumbNailColor(int menuIndex)
{
    if (menuIndex < 0 || menuIndex >= core::kThumbnailColours.choices) {
        return;
    }
    checkOnly(kPresetMenu, menuIndex);
    if (core::BrowserPane* pane = core::services().browserPane) {
        pane->setColourPreset(menuIndex + 1);
        pane->rebuildThumbnails();
    }
    core::store(core::kThumbnailColours, menuIndex);
    platform::saveSetting(kHiveSection, QStringLiteral("Colorpreset"), QString::number(menuIndex));
}

void Form1::PasteTesselia()
{
    editing::pastePicture(*this, *this);
}

void Form1::SaveGIF()
{
    editing::saveByDialog(*this, Xiala());
}

void Form1::startListedEditor(int place)
{
    editing::startListedEditor(*this, place);
}

void Form1::showFullScreenTopmost()
{
    stop_slideshow();
    hide();
    setWindowFlag(Qt::WindowStaysOnTopHint, true);
    setWindowState(Qt::WindowMaximized);
    show();
    m_pipeline->continueAfterFullScreen();
}
