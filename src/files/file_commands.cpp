#include "files/file_commands.h"

#include "core/interfaces.h"
#include "core/state.h"
#include "core/window_registry.h"
#include "files/classification.h"
#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/paths.h"
#include "platform/picture_saver.h"
#include "platform/pointer.h"

#include <QWidget>

namespace files {

namespace {

const QString kTransferWindow = QStringLiteral("Movefile");
const QString kDeleteTitle = QStringLiteral("Delete");

QString previewFile(core::MainWindow& window)
{
    const QString path = window.Xiala();
    if (!isOwnFormat(path)) {
        return path;
    }
    const QString workingFile = platform::appFile(QStringLiteral("temp.bmp"));
    // Where it can't be written, the file of the last picture is shown instead.
    static_cast<void>(platform::savePicture(window.viewer().Picture(), workingFile));
    return workingFile;
}

} // namespace

void deleteWithQuestion(const QString& path)
{
    platform::setPointer(platform::Pointer::Default);
    if (path.isEmpty() ||
        !platform::dialogs().askYesNo(QStringLiteral("Move \"%1\" to the trash?").arg(path),
                                      kDeleteTitle)) {
        return;
    }
    if (!platform::desktop().moveToTrash(path)) {
        platform::dialogs().showMessage(
            QStringLiteral("\"%1\" could not be moved to the trash.").arg(path), kDeleteTitle,
            platform::BoxIcon::Exclamation);
    }
}

void openTransferWindow(core::MainWindow& window, const QString& title, Transfer kind)
{
    core::state().MoveNotCopy = kind == Transfer::Move;
    QWidget* const transfer = core::windows().load(kTransferWindow);
    if (transfer == nullptr) {
        return;
    }
    const QString picture = kind == Transfer::Move ? QStringLiteral("Images/Movefile.jpg")
                                                   : QStringLiteral("Images/Copyfile.jpg");
    transfer->setProperty("captionText", title);
    transfer->setProperty("pictureFile", platform::appFile(picture));
    transfer->setProperty("previewFile", previewFile(window));
    platform::setPointer(platform::Pointer::Default);
    core::windows().show(kTransferWindow, core::ShowMode::Modal);
}

} // namespace files
