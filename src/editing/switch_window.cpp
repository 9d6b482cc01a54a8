#include "editing/switch_window.h"

#include "core/main_menus.h"
#include "core/services.h"
#include "core/window_names.h"
#include "files/text_list.h"
#include "platform/os/mounts.h"
#include "platform/os/paths.h"
#include "platform/os/subfolders.h"
#include "widgets/focus_field.h"
#include "widgets/form_builder.h"
#include "widgets/window_parts.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>

namespace {

const QString kRoot = QStringLiteral("/");
const QString kProgramFolder = QStringLiteral("/usr/bin");
const QString kParentEntry = QStringLiteral("..");
constexpr int kListWidth = 220; // pixels
constexpr int kListHeight = 200;

QListWidget* addList(widgets::FormBuilder& form, const char* name, const char* spokenName)
{
    auto* list = form.add(new QListWidget, name, spokenName, 1);
    list->setMinimumSize(kListWidth, kListHeight);
    list->setUniformItemSizes(true);
    return list;
}

} // namespace

FrmSwitch::FrmSwitch()
    : StripWindow(QStringLiteral("Add Editors"))
{
    setObjectName(core::windowName(core::Window::FrmSwitch));
    buildControls();
    m_drives->addItems(QStringList{kRoot, platform::homeFolder()} + platform::mediaMounts());
    enterFolder(kRoot);
    enterFolder(kProgramFolder);
    connect(m_drives, &QComboBox::currentTextChanged, this, &FrmSwitch::enterFolder);
    connect(m_folders, &QListWidget::itemActivated, this, &FrmSwitch::enterItem);
    m_folders->installEventFilter(this);
    connect(m_files, &QListWidget::currentRowChanged, this, &FrmSwitch::takeFile);
}

void FrmSwitch::buildControls()
{
    widgets::FormBuilder form(*this);
    widgets::FormBuilder lists = form.addRow(1);
    widgets::FormBuilder places = lists.addColumn();
    m_drives = places.add(new QComboBox, "Drive1", "Drive");
    widgets::nameDropDown(*m_drives, "Drives");
    m_folders = addList(places, "Dir1", "Folders");
    m_files = addList(lists, "Filelist", "Files");
    m_path = form.addCaptioned(new QLabel("Program:"), new widgets::FocusField, "Text1",
                               "Path of the program");
    m_name = form.addCaptioned(new QLabel("Name:"), new widgets::FocusField, "SwitchName",
                               "Name in the menu");
    form.addButtons({{"Command1", "&Add", [this] { addEditor(); }, widgets::PressedBy::Return}});
}

// A folder that can't be read leaves the lists as they are.
void FrmSwitch::enterFolder(const QString& folder)
{
    if (!m_fileList.setPath(folder)) {
        return;
    }
    const QSignalBlocker quietFolders(m_folders);
    const QSignalBlocker quietFiles(m_files);
    m_folders->clear();
    if (m_fileList.path() != kRoot) {
        m_folders->addItem(kParentEntry);
    }
    for (const QString& name : platform::visibleSubfolders(m_fileList.path())) {
        m_folders->addItem(name);
    }
    m_files->clear();
    for (int i = 0; i < m_fileList.count(); ++i) {
        m_files->addItem(m_fileList.name(i));
    }
}

void FrmSwitch::enterItem(const QListWidgetItem* item)
{
    const QString& folder = m_fileList.path();
    const QString name = item->text();
    enterFolder(name == kParentEntry ? platform::folderOf(folder)
                                     : platform::joinPath(folder, name));
}

// Return in the list of folders opens the one that is selected, and adds nothing.
bool FrmSwitch::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_folders || event->type() != QEvent::KeyPress) {
        return StripWindow::eventFilter(watched, event);
    }
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) {
        return false;
    }
    if (const QListWidgetItem* item = m_folders->currentItem()) {
        enterItem(item);
    }
    return true;
}

void FrmSwitch::takeFile()
{
    if (const QListWidgetItem* item = m_files->currentItem()) {
        m_path->setText(platform::joinPath(m_fileList.path(), item->text()));
    }
}

void FrmSwitch::addEditor()
{
    if (m_path->text().isEmpty() || m_name->text().isEmpty()) {
        return;
    }
    files::addNamed(files::kEditors, {m_name->text(), m_path->text()});
    if (core::MainMenus* menus = core::services().menus) {
        menus->refillListMenus();
    }
    close();
}
