#pragma once

#include <QString>
#include <array>
#include <cstddef>

namespace core {

// The windows of which there is one at most, in the order in which they unload when the program
// closes: the main window comes last. Each folder adds the factories of its own windows to the
// registry; one that has none yet shows nothing.
enum class Window {
    frmThumbnaillist,
    Acquire,
    ContactSheets,
    fastZoom,
    Favorties,
    FavortiesModi,
    FlashP,
    FlashQ,
    Form4,
    Form5rf,
    frmAbout,
    FrmBord,
    FrmBrowser,
    frmCapture,
    frmCaputreN,
    frmConfig,
    FrmFind,
    frmGetColor,
    frmMailSender,
    frmMsg,
    frmSaveJPGc,
    FrmSwitch,
    frmTemp,
    frmValueTip,
    frmWebRelease,
    frmWelcome,
    Movefile,
    MpegForm,
    FilePreivew,
    OptionsForm,
    Form1,
};

// Their names, in the same order.
inline constexpr std::array kWindowNames{
    "frmThumbnaillist",
    "Acquire",
    "ContactSheets",
    "fastZoom",
    "Favorties",
    "FavortiesModi",
    "FlashP",
    "FlashQ",
    "Form4",
    "Form5rf",
    "frmAbout",
    "FrmBord",
    "FrmBrowser",
    "frmCapture",
    "frmCaputreN",
    "frmConfig",
    "FrmFind",
    "frmGetColor",
    "frmMailSender",
    "frmMsg",
    "frmSaveJPGc",
    "FrmSwitch",
    "frmTemp",
    "frmValueTip",
    "frmWebRelease",
    "frmWelcome",
    "Movefile",
    "MpegForm",
    "FilePreivew",
    "OptionsForm",
    "Form1",
};
inline constexpr std::size_t kWindowCount = kWindowNames.size();
static_assert(kWindowCount == static_cast<std::size_t>(Window::Form1) + 1);

inline QString windowName(Window window)
{
    return QString::fromLatin1(kWindowNames[static_cast<std::size_t>(window)]);
}

} // namespace core
