#include "files/rename_window.h"

#include "core/browser_pane.h"
#include "core/file_field.h"
#include "core/help.h"
#include "core/main_menus.h"
#include "core/services.h"
#include "core/window_names.h"
#include "files/text_list.h"
#include "platform/os/file_list.h"
#include "platform/os/files.h"
#include "platform/os/paths.h"
#include "widgets/focus_field.h"
#include "widgets/form_builder.h"
#include "widgets/plain_tip.h"

#include <QFocusEvent>
#include <QLabel>

namespace {

constexpr int kFieldWidth = 360; // pixels

// A field that keeps what is selected in it when it gets the focus.
class NameField : public widgets::FocusField {
protected:
    void focusInEvent(QFocusEvent* event) override
    {
        const int start = selectionStart();
        const int length = static_cast<int>(selectedText().size());
        const int cursor = cursorPosition();
        FocusField::focusInEvent(event);
        deselect();
        setCursorPosition(cursor);
        if (start >= 0) {
            setSelection(start, length);
        }
    }
};

// Shows a text that may be longer than its place; the whole of it stands in the tip.
QLineEdit* textLine(const QString& text)
{
    auto* line = new QLineEdit(text);
    line->setReadOnly(true);
    line->setFrame(false);
    line->setCursorPosition(0);
    widgets::setPlainTip(*line, text);
    QPalette palette = line->palette();
    palette.setColor(QPalette::Base, Qt::transparent);
    line->setPalette(palette);
    return line;
}

// The part before the extension; all of a name that has none or consists of it.
int basePart(const QString& name)
{
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return static_cast<int>(dot > 0 ? dot : name.size());
}

void followInFavourites(const QString& oldPath, const QString& newPath)
{
    files::replaceText(files::kFavourites, oldPath, newPath);
    if (core::MainMenus* menus = core::services().menus) {
        menus->refillListMenus();
    }
}

// The place in the list stays with the file that was selected.
void refreshFileList(const QString& oldName, const QString& newName)
{
    core::BrowserPane* pane = core::services().browserPane;
    if (pane == nullptr) {
        return;
    }
    platform::FileList& list = pane->File1();
    const QString selected = list.fileName();
    list.refresh();
    list.select(selected == oldName ? newName : selected);
}

} // namespace

Form5rf::Form5rf()
    : StripWindow(QStringLiteral("Rename"))
{
    setObjectName(core::windowName(core::Window::Form5rf));
    const core::FileField* field = core::services().field;
    m_path = field != nullptr ? field->Xiala() : QString();
    const QString name = platform::fileNameOf(m_path);

    widgets::FormBuilder form(*this);
    form.addCaptioned(new QLabel("Folder:"), textLine(platform::folderOf(m_path)), "Dir1",
                      "Folder of the file");
    m_newName = form.addCaptioned(new QLabel("&New name:"), new NameField, "Newname",
                                  "New name of the file");
    m_newName->setMinimumWidth(kFieldWidth);
    m_newName->setText(name);
    m_newName->setSelection(0, basePart(name));
    form.addButtons({{"Command1", "&Rename", [this] { rename(); }, widgets::PressedBy::Return},
                     {"Command2", "&Help", [] { core::openHelp(); }},
                     {"C3", "&Cancel", [this] { close(); }, widgets::PressedBy::Escape}});
    m_newName->setFocus();
}

void Form5rf::rename()
{
    const QString folder = platform::folderOf(m_path);
    const QString newName = m_newName->text();
    const QString newPath = platform::joinPath(folder, newName);
    if (folder.isEmpty() || !platform::isPlainName(newName) ||
        !platform::renameFile(m_path, newPath)) {
        return;
    }
    followInFavourites(m_path, newPath);
    close();
    refreshFileList(platform::fileNameOf(m_path), newName);
}
