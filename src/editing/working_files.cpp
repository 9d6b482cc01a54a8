#include "editing/working_files.h"

#include "core/interfaces.h"
#include "editing/picture_test.h"
#include "platform/os/files.h"
#include "platform/os/paths.h"
#include "platform/pictures/picture_box.h"
#include "platform/pictures/picture_loader.h"
#include "platform/pictures/picture_saver.h"

namespace editing {

namespace {

const char* nameOf(WorkingFile file)
{
    switch (file) {
    case WorkingFile::Picture:
        return "temp.bmp";
    case WorkingFile::BeforeEdit:
        return "Frametemp.bmp";
    case WorkingFile::Save:
        return "saveTemp.bmp";
    case WorkingFile::JpegPreview:
        return "saveJpgTemp.jpg";
    case WorkingFile::Transform:
        return "Images/Temp.bmp";
    }
    return "";
}

} // namespace

QString workingFile(WorkingFile file)
{
    return platform::appFile(QString::fromLatin1(nameOf(file)));
}

bool saveAs(WorkingFile file, const platform::Picture& picture)
{
    return platform::savePicture(picture, workingFile(file));
}

void keepBeforeEdit(core::MainWindow& form)
{
    form.Image1().setPicture(form.viewer().Picture());
    // An edit goes on without its undo.
    static_cast<void>(saveAs(WorkingFile::BeforeEdit, form.Image1().picture()));
}

void showThroughWorkingFile(core::MainWindow& form, const platform::PictureBox& box)
{
    const QString path = workingFile(WorkingFile::Transform);
    if (platform::savePicture(box.drawnImage(), path)) {
        if (const auto picture = platform::loadPicture(path)) {
            form.viewer().setPicture(*picture);
        }
    }
    platform::removeFile(path);
}

void undo(core::MainWindow& form)
{
    if (!hasPicture(form)) {
        return;
    }
    if (const auto picture = platform::loadPicture(workingFile(WorkingFile::BeforeEdit))) {
        form.viewer().setPicture(*picture);
    }
    form.orgPicture().setPicture(form.viewer().Picture());
    form.rebuildSizeText();
}

void removeWorkingFiles()
{
    for (const WorkingFile file :
         {WorkingFile::BeforeEdit, WorkingFile::Picture, WorkingFile::Transform}) {
        platform::removeFile(workingFile(file));
    }
    // Written by nobody here, but taken along where it lies.
    platform::removeFile(platform::appFile(QStringLiteral("Temp2.bmp")));
}

} // namespace editing
