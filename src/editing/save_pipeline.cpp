#include "editing/save_pipeline.h"

#include "core/interfaces.h"
#include "core/state.h"
#include "core/window_registry.h"
#include "editing/gif_export.h"
#include "editing/jpeg_window.h"
#include "editing/picture_test.h"
#include "editing/working_files.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/picture_box.h"
#include "platform/picture_loader.h"
#include "platform/picture_saver.h"
#include "platform/pointer.h"

namespace editing {

namespace {

const QString kSaveFilter = QStringLiteral("BMP (*.BMP)|*.bmp|GIF (*.Gif)|*.gif|JPG (*.JPG)|*.jpg");

enum SaveFormat { kBmp = 1, kGif = 2, kJpeg = 3 };

void saveBmp(core::MainWindow& form, const QString& path)
{
    form.Image1().setPicture(form.viewer().Picture());
    static_cast<void>(
        platform::savePicture(form.Image1().picture(), path, platform::Flush::ToDisk));
}

void saveGif(core::MainWindow& form, const QString& path)
{
    static_cast<void>(SaveGIF(form.Image1().picture(), path));
}

void saveJpeg(core::MainWindow&, const QString& path)
{
    if (auto* window = qobject_cast<frmSaveJPGc*>(core::windows().load(kJpegWindowName))) {
        window->setOutputPath(path);
        platform::setPointer(platform::Pointer::Default);
        core::windows().show(kJpegWindowName, core::ShowMode::Modal);
    }
}

// Without the file the dialog works from the picture in hand; only an older file that can't be
// removed either would be taken for it.
bool isReadyForDialog(const platform::Picture& picture)
{
    const QString path = workingFile(WorkingFile::Save);
    return saveAs(WorkingFile::Save, picture) || platform::removeFile(path) ||
           !platform::isRegularFile(path);
}

} // namespace

void save(core::MainWindow& form, SaveSource source)
{
    if (!hasPicture(form)) {
        return;
    }
    platform::PictureBox& box = form.Image1();
    box.setPicture(form.viewer().Picture());
    if (isReadyForDialog(source == SaveSource::Picture ? box.picture() : box.drawnImage())) {
        form.SaveGIF();
    }
}

void saveByDialog(core::MainWindow& form)
{
    platform::FileRequest request;
    request.filter = kSaveFilter;
    platform::setPointer(platform::Pointer::Default);
    const std::optional<platform::SaveChoice> choice = platform::dialogs().saveFile(request);
    if (!choice) {
        return;
    }
    const platform::PointerGuard hourglass;
    if (const auto picture = platform::loadPicture(workingFile(WorkingFile::Save))) {
        form.Image1().setPicture(*picture);
    }
    switch (choice->filterIndex) {
    case kBmp:
        saveBmp(form, choice->path);
        break;
    case kGif:
        saveGif(form, choice->path);
        break;
    case kJpeg:
        saveJpeg(form, choice->path);
        break;
    default:
        break;
    }
    core::state().PictureChanged = false;
}

} // namespace editing
