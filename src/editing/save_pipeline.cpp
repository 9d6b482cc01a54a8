#include "editing/save_pipeline.h"

#include "core/picture_display.h"
#include "core/picture_required.h"
#include "core/state.h"
#include "core/viewer.h"
#include "core/working_files.h"
#include "editing/jpeg_window.h"
#include "platform/desktop/dialogs.h"
#include "platform/desktop/pointer.h"
#include "platform/os/files.h"
#include "platform/os/paths.h"
#include "platform/pictures/gif_export.h"
#include "platform/pictures/picture_box.h"
#include "platform/pictures/picture_loader.h"
#include "platform/pictures/picture_saver.h"

namespace editing {

namespace {

const QString kSaveFilter = QStringLiteral("BMP (*.BMP)|*.bmp|GIF (*.Gif)|*.gif|JPG (*.JPG)|*.jpg");

const QString kSaveTitle = QStringLiteral("Save as");
const QString kFirstExtension = QStringLiteral(".bmp"); // of the filter that the dialog starts with

enum SaveFormat { kBmp = 1, kGif = 2, kJpeg = 3 };

void saveBmp(core::PictureDisplay& display, const QString& path)
{
    display.Image1().setPicture(display.viewer().Picture());
    static_cast<void>(
        platform::savePicture(display.Image1().picture(), path, platform::Flush::ToDisk));
}

void saveGif(core::PictureDisplay& display, const QString& path)
{
    static_cast<void>(platform::writeGif(display.Image1().picture(), path));
}

void saveJpeg(core::PictureDisplay&, const QString& path)
{
    showJpegWindow(path);
}

QString withoutExtension(const QString& name)
{
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return dot <= 0 ? name : name.left(dot);
}

// The name and the folder of the picture shown. What stands in the program's own folders goes when
// the program ends, so nothing is to be saved there, and working files have names for the program
// alone.
platform::FileRequest requestFor(const QString& shownPath)
{
    platform::FileRequest request;
    request.title = kSaveTitle;
    request.filter = kSaveFilter;
    if (!platform::isRegularFile(shownPath)) {
        return request;
    }
    const QString folder = platform::folderOf(shownPath);
    if (folder == platform::appPath()) {
        return request;
    }
    if (folder != platform::appFile(QStringLiteral("openTemp"))) {
        request.folder = folder;
    }
    request.fileName = withoutExtension(platform::fileNameOf(shownPath)) + kFirstExtension;
    return request;
}

// Without the file the dialog works from the picture in hand; only an older file that can't be
// removed either would be taken for it.
bool isReadyForDialog(const platform::Picture& picture)
{
    const QString path = core::workingFile(core::WorkingFile::Save);
    return core::saveAs(core::WorkingFile::Save, picture) || platform::removeFile(path) ||
           !platform::isRegularFile(path);
}

} // namespace

void save(core::PictureDisplay& display, SaveSource source, const QString& shownPath)
{
    if (!core::requirePicture(display.viewer())) {
        return;
    }
    platform::PictureBox& box = display.Image1();
    box.setPicture(display.viewer().Picture());
    if (isReadyForDialog(source == SaveSource::Picture ? box.picture() : box.drawnImage())) {
        saveByDialog(display, shownPath);
    }
}

void saveByDialog(core::PictureDisplay& display, const QString& shownPath)
{
    const std::optional<platform::SaveChoice> choice =
        platform::dialogs().saveFile(requestFor(shownPath));
    if (!choice) {
        return;
    }
    const platform::PointerGuard hourglass;
    if (const auto picture = platform::loadPicture(core::workingFile(core::WorkingFile::Save))) {
        display.Image1().setPicture(*picture);
    }
    switch (choice->filterIndex) {
    case kBmp:
        saveBmp(display, choice->path);
        break;
    case kGif:
        saveGif(display, choice->path);
        break;
    case kJpeg:
        saveJpeg(display, choice->path);
        break;
    default:
        break;
    }
    core::state().PictureChanged = false;
}

} // namespace editing
