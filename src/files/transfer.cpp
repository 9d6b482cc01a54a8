#include "files/transfer.h"

#include "core/state.h"
#include "core/viewer.h"
#include "core/window_registry.h"
#include "core/working_files.h"
#include "files/classification.h"
#include "platform/os/paths.h"

#include <QWidget>

namespace files {

namespace {

QString topPicture(TransferKind kind)
{
    return platform::appFile(kind == TransferKind::Move ? QStringLiteral("Images/Movefile.jpg")
                                                        : QStringLiteral("Images/Copyfile.jpg"));
}

QString previewFile(const core::Viewer& viewer, const QString& path)
{
    if (!isOwnFormat(path)) {
        return path;
    }
    // Where it can't be written, the file of the last picture is shown instead.
    static_cast<void>(core::saveAs(core::WorkingFile::Picture, viewer.Picture()));
    return core::workingFile(core::WorkingFile::Picture);
}

} // namespace

void openTransferWindow(const core::Viewer& viewer, const QString& path, const QString& title,
                        TransferKind kind)
{
    core::state().MoveNotCopy = kind == TransferKind::Move;
    QWidget* const loaded = core::windows().load(core::Window::Movefile);
    if (auto* transfer = dynamic_cast<TransferWindow*>(loaded)) {
        transfer->setTransfer({title, topPicture(kind), previewFile(viewer, path)});
        core::windows().show(core::Window::Movefile, core::ShowMode::Modal);
    }
}

} // namespace files
