#include "shell/commands.h"

#include "editing/clipboard_commands.h"
#include "editing/edit_steps.h"
#include "editing/editor_handoff.h"
#include "editing/image_commands.h"
#include "editing/save_pipeline.h"
#include "files/deletion.h"
#include "files/favourites_editor_window.h"
#include "files/transfer.h"
#include "shell/main_window.h"
#include "thumbs/miniature.h"

namespace shell::commands {

namespace {

constexpr bool kModal = true;
constexpr int kFlipVertical = 2; // of the Image menu

} // namespace

void save(Form1& form, int /*index*/)
{
    editing::save(form, editing::SaveSource::Picture, form.Xiala());
}

void saveAs(Form1& form, int /*index*/)
{
    editing::save(form, editing::SaveSource::DrawnImage, form.Xiala());
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
    files::deleteWithQuestion(path, thumbs::miniature(path, form.devicePixelRatioF()));
}

void copyTo(Form1& form, int /*index*/)
{
    files::openTransferWindow(form.viewer(), form.Xiala(), QStringLiteral("Copy File to..."),
                              files::TransferKind::Copy);
}

void copyToFromRightMenu(Form1& form, int /*index*/)
{
    files::openTransferWindow(form.viewer(), form.Xiala(), QStringLiteral("Copy file to..."),
                              files::TransferKind::Copy);
}

void moveTo(Form1& form, int /*index*/)
{
    files::openTransferWindow(form.viewer(), form.Xiala(), QStringLiteral("Move file to..."),
                              files::TransferKind::Move);
}

void rename(Form1& form, int /*index*/)
{
    form.showWindow(core::Window::Form5rf, kModal);
}

void search(Form1& form, int /*index*/)
{
    form.showWindow(core::Window::FrmFind, kModal);
}

void composeFrame(Form1& form, int /*index*/)
{
    form.showWindow(core::Window::FrmBord, kModal);
}

void showPreferences(Form1& form, int /*index*/)
{
    form.showWindow(core::Window::OptionsForm, kModal);
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
    form.showWindow(core::Window::FrmSwitch, kModal);
}

void configureEditors(Form1& /*form*/, int /*index*/)
{
    files::showListEditor(files::EditedList::Editors);
}

} // namespace shell::commands
