#include "files/favourites_editor_window.h"

#include "core/main_menus.h"
#include "core/services.h"
#include "core/window_registry.h"
#include "platform/desktop/dialogs.h"
#include "widgets/form_builder.h"

#include <QEvent>
#include <QListWidget>

namespace {

const QString kEditorsTitle = QStringLiteral("Modifty Switch");
constexpr QSize kListSize{320, 220}; // pixels

} // namespace

void files::showListEditor(EditedList list)
{
    QWidget* const loaded = core::windows().load(core::Window::FavortiesModi);
    if (auto* editor = qobject_cast<FavortiesModi*>(loaded)) {
        editor->setList(list);
        core::windows().show(core::Window::FavortiesModi, core::ShowMode::Modal);
    }
}

FavortiesModi::FavortiesModi()
    : StripWindow(QString())
{
    setObjectName(core::windowName(core::Window::FavortiesModi));
    setAccessibleName(QStringLiteral("Favourites"));
    widgets::FormBuilder form(*this);
    m_names = form.add(new QListWidget, "List1", "Entries");
    m_names->setMinimumSize(kListSize);
    m_paths = form.own(new QListWidget, "lstdata", "Paths of the entries");
    m_paths->hide();
    form.addButtons(
        {{"chameleonButton1", "&Delete", [this] { deleteSelected(); }},
         {"Renname", "&Renname...", [this] { renameSelected(); }},
         {"cmdClose", "&Close", [this] { close(); }, widgets::PressedBy::ReturnAndEscape}});
    m_names->setFocus();
    refill();
}

void FavortiesModi::setList(files::EditedList list)
{
    m_list = list;
    const bool editors = list == files::EditedList::Editors;
    setCaption(editors ? kEditorsTitle : QString());
    setAccessibleName(editors ? QStringLiteral("Editors") : QStringLiteral("Favourites"));
    refill();
}

const files::TextList& FavortiesModi::list() const
{
    return m_list == files::EditedList::Editors ? files::kEditors : files::kFavourites;
}

void FavortiesModi::refill()
{
    m_names->clear();
    m_paths->clear();
    for (const files::NamedPath& entry : files::readNamed(list())) {
        m_names->addItem(entry.name);
        m_paths->addItem(entry.path);
    }
}

void FavortiesModi::deleteSelected()
{
    const int row = m_names->currentRow();
    if (row < 0) {
        return;
    }
    files::deleteOne(list(), {m_names->item(row)->text(), m_paths->item(row)->text()});
    delete m_names->takeItem(row);
    delete m_paths->takeItem(row);
    refillMenus();
}

void FavortiesModi::renameSelected()
{
    const int row = m_names->currentRow();
    if (row < 0) {
        return;
    }
    // The question takes the activation away and gives it back, and then the rows are new ones.
    const files::NamedPath entry{m_names->item(row)->text(), m_paths->item(row)->text()};
    const std::optional<QString> newName = platform::dialogs().askText(
        QStringLiteral("Name: "), QStringLiteral("Renname Favortie"), entry.name);
    if (!newName || newName->isEmpty()) {
        return;
    }
    files::renameEntry(list(), entry, *newName);
    refill();
    refillMenus();
}

void FavortiesModi::refillMenus()
{
    if (core::MainMenus* menus = core::services().menus) {
        menus->refillListMenus();
    }
}

bool FavortiesModi::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate) {
        refill();
    }
    return StripWindow::event(event);
}
