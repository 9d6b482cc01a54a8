#include "shell/commands.h"

#include "core/help.h"
#include "core/services.h"
#include "core/state.h"
#include "files/display_pipeline.h"
#include "files/favourites_editor_window.h"
#include "platform/desktop/desktop.h"
#include "platform/os/paths.h"
#include "shell/main_window.h"

namespace shell::commands {

namespace {

constexpr bool kModal = true;
constexpr bool kModeless = false;

// The maker's pages.
const QString kSite = QStringLiteral("https://vistara.invalid/");

} // namespace

void startSlideShow(Form1& form, int /*index*/)
{
    form.pipeline().setSlideToggle(true);
}

void stopSlideShow(Form1& form, int /*index*/)
{
    form.pipeline().setSlideToggle(false);
}

void toggleSlideShow(Form1& form, int /*index*/)
{
    form.pipeline().toggleSlideShow();
}

void toggleBrowseMode(Form1& form, int /*index*/)
{
    form.OCbrowse();
}

void toggleMainToolbar(Form1& form, int /*index*/)
{
    form.setBandShown(1, !form.isBandShown(1));
}

void toggleRecentBar(Form1& form, int /*index*/)
{
    form.setBandShown(2, !form.isBandShown(2));
}

void setThumbnailSize(Form1& form, int index)
{
    form.ThumbNailSize(index);
}

void setThumbnailColours(Form1& form, int index)
{
    form.ThumbNailColor(index);
}

void setWallpaper(Form1& /*form*/, int index)
{
    if (!core::services().setWallpaper) {
        return;
    }
    bool* const flags[] = {&core::state().WallCenter, &core::state().WallTile,
                           &core::state().WallStretch};
    *flags[index] = true;
    core::services().setWallpaper();
}

void addFavourite(Form1& form, int /*index*/)
{
    form.showWindow(core::Window::Favorties, kModal);
}

void modifyFavourites(Form1& /*form*/, int /*index*/)
{
    files::showListEditor(files::EditedList::Favourites);
}

void showHelp(Form1& /*form*/, int /*index*/)
{
    core::openHelp();
}

void openUpdatePage(Form1& /*form*/, int /*index*/)
{
    platform::desktop().openDocument(kSite + QStringLiteral("download.htm"));
}

void openSupportPage(Form1& /*form*/, int /*index*/)
{
    platform::desktop().openDocument(kSite + QStringLiteral("feedback.htm"));
}

void startLiveUpdate(Form1& /*form*/, int /*index*/)
{
    platform::desktop().startProgram(platform::appFile(QStringLiteral("LiveUpdate/LiveUpdate.exe")),
                                     {});
}

void showAbout(Form1& form, int /*index*/)
{
    form.showWindow(core::Window::frmAbout, kModeless);
}

} // namespace shell::commands
