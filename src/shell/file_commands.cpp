#include "shell/commands.h"

#include "acquire/capture_icon_window.h"
#include "acquire/capture_start.h"
#include "core/browser_pane.h"
#include "core/player_window.h"
#include "core/services.h"
#include "core/window_names.h"
#include "platform/desktop/dialogs.h"
#include "platform/desktop/pump.h"
#include "platform/os/file_list.h"
#include "platform/os/files.h"
#include "platform/os/paths.h"
#include "platform/pictures/picture_saver.h"
#include "publishing/printing/print_window.h"
#include "shell/main_window.h"
#include "viewer/picture_viewer.h"

namespace shell::commands {

namespace {

constexpr bool kModal = true;
constexpr bool kModeless = false;

const QString kOpenFilter = QStringLiteral(
    "All Formats (*.*)|*.lbm;*.bbm;*.iff;*.pcx;*.tif;*.TGA;*.psd;*.bmp;*.emf;*.gif;*.icl;*.ico;"
    "*.cur;*.ani;*.jpg;*.jpeg;*.wmf");

QString openTempFolder()
{
    return platform::appFile(QStringLiteral("openTemp"));
}

// Files opened are viewed from a folder of their own.
void copyIntoOpenTemp(const QStringList& chosen)
{
    const QString folder = openTempFolder();
    platform::makeFolder(folder);
    for (const QString& file : chosen) {
        // A file that can't be copied is left out.
        static_cast<void>(platform::copyFile(
            file, platform::joinPath(folder, platform::fileNameOf(file)), platform::Flush::No));
    }
}

// The run of thumbnails that this starts lets events run; the pane may be gone afterwards.
void showOpenTemp()
{
    core::BrowserPane* pane = core::services().browserPane;
    if (pane == nullptr) {
        return;
    }
    const bool samePath = pane->File1().path() == openTempFolder();
    pane->File1().setPath(openTempFolder());
    pane = core::services().browserPane;
    if (pane == nullptr) {
        return;
    }
    pane->File1().refresh();
    if (samePath) {
        pane->rebuildThumbnails();
    }
}

QString withoutExtension(const QString& name)
{
    const qsizetype point = name.lastIndexOf(QLatin1Char('.'));
    return point < 0 ? name : name.left(point);
}

void fileInLibrary(Form1& form, const QString& chosen)
{
    const QString name = withoutExtension(platform::fileNameOf(chosen)) + QStringLiteral(".bmp");
    const platform::Picture picture = form.viewer().Picture();
    for (const char* folder : {"Lib", "Lib/pLib"}) {
        const QString path = platform::appFile(QString::fromLatin1(folder));
        platform::makeFolder(path);
        static_cast<void>(platform::savePicture(picture, platform::joinPath(path, name),
                                                platform::Flush::ToDisk));
    }
    form.LibImport = false;
}

} // namespace

void open(Form1& form, int /*index*/)
{
    platform::removeFilesIn(openTempFolder());
    platform::FileRequest request;
    request.title = QStringLiteral("Select File");
    request.filter = kOpenFilter;
    request.severalFiles = true;
    const QStringList chosen = platform::dialogs().openFiles(request);
    if (chosen.isEmpty()) {
        return;
    }
    copyIntoOpenTemp(chosen);
    form.setXiala(chosen.first());
    showOpenTemp();
    if (platform::isClosing()) {
        return;
    }
    form.nextpic();
    if (form.LibImport) {
        fileInLibrary(form, chosen.first());
    } else {
        form.setMenuState(true);
    }
}

void showFlashPlayer(Form1& form, int /*index*/)
{
    QWidget* const window = form.showWindow(core::Window::FlashP, kModeless);
    if (auto* player = dynamic_cast<core::PlayerWindow*>(window)) {
        player->openPath(platform::appFile(QStringLiteral("flashplay.swf")));
    }
}

void showMediaPlayer(Form1& form, int /*index*/)
{
    form.showWindow(core::Window::MpegForm, kModeless);
}

void showWebBrowser(Form1& form, int /*index*/)
{
    form.showWindow(core::Window::FrmBrowser, kModeless);
}

void createAlbum(Form1& /*form*/, int /*index*/)
{
    if (core::services().createAlbum) {
        core::services().createAlbum();
    }
}

void setUpAlbum(Form1& form, int /*index*/)
{
    form.showWindow(core::Window::frmWebRelease, kModal);
}

void sendMail(Form1& form, int /*index*/)
{
    form.showWindow(core::Window::frmMailSender, kModeless);
}

void acquire(Form1& form, int /*index*/)
{
    form.showWindow(core::Window::Acquire, kModal);
}

void print(Form1& form, int /*index*/)
{
    printing::showPrintWindow(form.viewer().Picture());
}

void showContactSheets(Form1& form, int /*index*/)
{
    form.showWindow(core::Window::ContactSheets, kModal);
}

void captureScreen(Form1& form, int /*index*/)
{
    acquire::startCapture(&form);
}

void captureQuietly(Form1& form, int /*index*/)
{
    acquire::showCaptureIcon();
    acquire::keepOutOfCaptures(form);
}

void showProperties(Form1& form, int /*index*/)
{
    form.Propers(form.Xiala());
}

void exitProgram(Form1& form, int /*index*/)
{
    form.exitProgram();
}

} // namespace shell::commands
