#include "shell/commands.h"

#include "core/services.h"
#include "core/state.h"
#include "core/window_registry.h"
#include "editing/clipboard_commands.h"
#include "editing/editor_handoff.h"
#include "editing/image_commands.h"
#include "editing/save_pipeline.h"
#include "editing/working_files.h"
#include "files/classification.h"
#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/pointer.h"
#include "shell/main_window.h"

#include <QWidget>

namespace shell::commands {

namespace {

constexpr bool kModal = true;
constexpr int kFlipVertical = 2; // of the Image menu

const QString kTransferWindow = QStringLiteral("Movefile");

// The window that copies and moves shows the picture of the file; one in an own format can only be
// shown from its working file.
void transferFile(Form1& form, const QString& title, const QString& picture, bool move)
{
    core::state().MoveNotCopy = move;
    QWidget* const window = core::windows().load(kTransferWindow);
    if (window == nullptr) {
        return;
    }
    if (files::isOwnFormat(form.Xiala())) {
        editing::saveQuietly(form.viewer().Picture(), editing::WorkingFile::Picture);
    }
    window->setProperty("captionText", title);
    window->setProperty("pictureFile", picture);
    form.showWindow(kTransferWindow, kModal);
}

void copyWithTitle(Form1& form, const QString& title)
{
    transferFile(form, title, QStringLiteral("Images/Copyfile.jpg"), false);
}

} // namespace

void save(Form1& form, int /*index*/)
{
    editing::save(form, editing::SaveSource::Picture);
}

void saveAs(Form1& form, int /*index*/)
{
    editing::save(form, editing::SaveSource::DrawnImage);
}

void undo(Form1& form, int /*index*/)
{
    editing::undo(form);
}

void cutPicture(Form1& form, int /*index*/)
{
    editing::cutPicture(form);
}

void copyPicture(Form1& form, int /*index*/)
{
    editing::copyPicture(form);
}

void paste(Form1& form, int /*index*/)
{
    form.PasteTesselia();
}

void deleteFile(Form1& form, int /*index*/)
{
    const QString path = form.Xiala();
    platform::setPointer(platform::Pointer::Default);
    if (path.isEmpty() ||
        !platform::dialogs().askYesNo(QStringLiteral("Move this to the trash?\n\n%1").arg(path),
                                      core::kProgramName)) {
        return;
    }
    if (!platform::desktop().moveToTrash(path)) {
        platform::dialogs().showMessage(
            QStringLiteral("This could not be moved to the trash:\n\n%1").arg(path),
            core::kProgramName, platform::BoxIcon::Exclamation);
    }
}

void copyTo(Form1& form, int /*index*/)
{
    copyWithTitle(form, QStringLiteral("Copy File to..."));
}

void copyToFromRightMenu(Form1& form, int /*index*/)
{
    copyWithTitle(form, QStringLiteral("Copy file to..."));
}

void moveTo(Form1& form, int /*index*/)
{
    transferFile(form, QStringLiteral("Move file to..."), QStringLiteral("Images/Movefile.jpg"),
                 true);
}

void rename(Form1& form, int /*index*/)
{
    form.showWindow(QStringLiteral("Form5rf"), kModal);
}

void search(Form1& form, int /*index*/)
{
    form.showWindow(QStringLiteral("FrmFind"), kModal);
}

void composeFrame(Form1& form, int /*index*/)
{
    form.showWindow(QStringLiteral("FrmBord"), kModal);
}

void showPreferences(Form1& form, int /*index*/)
{
    form.showWindow(QStringLiteral("OptionsForm"), kModal);
}

void editImage(Form1& form, int index)
{
    editing::optImage(form, index);
}

void flipFromRightMenu(Form1& form, int /*index*/)
{
    editing::optImage(form, kFlipVertical);
}

void applyFilter(Form1& form, int index)
{
    editing::runFilter(form, editing::FilterMenu::Filters, index);
}

void applyColour(Form1& form, int index)
{
    editing::runFilter(form, editing::FilterMenu::Colours, index);
}

void startSeparateEditor(Form1& form, int /*index*/)
{
    editing::startSeparateEditor(form);
}

void addEditor(Form1& form, int /*index*/)
{
    form.showWindow(QStringLiteral("FrmSwitch"), kModal);
}

void configureEditors(Form1& form, int /*index*/)
{
    if (QWidget* window = core::windows().load(QStringLiteral("FavortiesModi"))) {
        window->setProperty("listMode", QStringLiteral("T"));
    }
    form.showWindow(QStringLiteral("FavortiesModi"), kModal);
}

} // namespace shell::commands
