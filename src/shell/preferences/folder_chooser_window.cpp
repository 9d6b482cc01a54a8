#include "shell/preferences/folder_chooser_window.h"

#include "core/window_registry.h"
#include "files/explorer/ctl_explorer.h"
#include "platform/os/files.h"
#include "platform/os/paths.h"
#include "widgets/form_builder.h"

#include <QPushButton>

namespace {

constexpr QSize kTreeSize{400, 360}; // pixels
constexpr std::int16_t kFromCodeAlone = 1;

// Names aren't edited where a folder is chosen, and settings panels are no folders.
core::PropertyBag treeProperties()
{
    files::ExplorerProperties properties;
    properties.LabelEdit = kFromCodeAlone;
    properties.HideControlPanel = true;
    core::PropertyBag bag;
    files::writeProperties(properties, bag);
    return bag;
}

} // namespace

void preferences::showFolderChooser(QLineEdit& field)
{
    QWidget* const loaded = core::windows().load(core::Window::FilePreivew);
    if (auto* chooser = qobject_cast<FilePreivew*>(loaded)) {
        chooser->setField(field);
        core::windows().show(core::Window::FilePreivew, core::ShowMode::Modal);
    }
}

FilePreivew::FilePreivew()
    : StripWindow(QStringLiteral("Choose a Folder"))
{
    setObjectName(core::windowName(core::Window::FilePreivew));
    if (QWidget* options = core::windows().find(core::Window::OptionsForm)) {
        setParent(options, windowFlags());
    }
    widgets::FormBuilder form(*this);
    form.addText(QStringLiteral("Which folder is shown at start?"));
    m_explorer = form.add(new ctlExplorer(nullptr, treeProperties()), "ctlExplorer1", "Folders", 1);
    m_explorer->setMinimumSize(kTreeSize);
    m_ok = form.addButtons(
        {{"chameleonButton1", "&OK", [this] { accept(); }, widgets::PressedBy::Return},
         {"Cancel", "&Cancel", [this] { close(); }, widgets::PressedBy::Escape}});
    connect(m_explorer, &ctlExplorer::Change, this, &FilePreivew::offerFolder);
    connect(m_explorer, &ctlExplorer::RootClick, this, &FilePreivew::offerFolder);
    offerFolder();
}

void FilePreivew::setField(QLineEdit& field)
{
    m_field = &field;
    const QString folder = field.text();
    m_explorer->setPath(platform::isFolder(folder) ? folder : platform::picturesFolder());
}

// The places above folders have names of their own instead of paths.
bool FilePreivew::isFolderChosen() const
{
    const QString path = m_explorer->path();
    return path.startsWith(u'/') && platform::isFolder(path);
}

void FilePreivew::offerFolder()
{
    m_ok->setEnabled(isFolderChosen());
}

// The folder may have gone since it was chosen.
void FilePreivew::accept()
{
    if (!isFolderChosen()) {
        offerFolder();
        return;
    }
    if (m_field != nullptr) {
        m_field->setText(m_explorer->path());
    }
    close();
}
