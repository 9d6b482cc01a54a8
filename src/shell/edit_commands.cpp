#include "shell/commands.h"

#include "core/window_registry.h"
#include "editing/clipboard_commands.h"
#include "editing/edit_steps.h"
#include "editing/editor_handoff.h"
#include "editing/image_commands.h"
#include "editing/save_pipeline.h"
#include "files/file_commands.h"
#include "shell/main_window.h"
#include "thumbs/miniature.h"

#include <QWidget>

namespace shell::commands {

namespace {

constexpr bool kModal = true;
constexpr int kFlipVertical = 2; // of the Image menu

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
    files::deleteWithQuestion(path, thumbs::miniature(path, form.devicePixelRatioF()));
}

void copyTo(Form1& form, int /*index*/)
{
    files::openTransferWindow(form, QStringLiteral("Copy File to..."), files::Transfer::Copy);
}

void copyToFromRightMenu(Form1& form, int /*index*/)
{
    files::openTransferWindow(form, QStringLiteral("Copy file to..."), files::Transfer::Copy);
}

void moveTo(Form1& form, int /*index*/)
{
    files::openTransferWindow(form, QStringLiteral("Move file to..."), files::Transfer::Move);
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

void configureEditors(Form1& form, int /*index*/)
{
    if (QWidget* window = core::windows().load(core::Window::FavortiesModi)) {
        window->setProperty("listMode", QStringLiteral("T"));
    }
    form.showWindow(core::Window::FavortiesModi, kModal);
}

} // namespace shell::commands
