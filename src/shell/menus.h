#pragma once

#include "shell/menu_style.h"

#include <QHash>
#include <QMenu>
#include <QString>
#include <functional>

class QAction;
class QMenuBar;
class QWidget;

namespace shell {

struct MenuRow;

// All menus of the main window, built from the command table. Entries are found by the name of
// their array and their index.
class Menus {
public:
    using Trigger = std::function<void(const MenuRow& row)>;

    // The owner is the main window; every chosen entry with a handler goes to the trigger.
    Menus(QWidget& owner, Trigger trigger);

    [[nodiscard]] QMenuBar* bar() const { return m_bar; }
    [[nodiscard]] QMenu* menu(const QString& name) const { return m_menus.value(name); }

    // Null where the table has no such entry.
    [[nodiscard]] QAction* entry(const QString& array, int index) const;

    // Puts entries behind those that the table names; they carry the array's name and the indexes
    // from firstIndex on. The ones put there before go.
    using Chosen = std::function<void(int index)>;
    void setListEntries(const QString& menu, const QString& array, int firstIndex,
                        const QStringList& captions, Chosen chosen);

private:
    QMenu* makeMenu(QWidget& owner, const QString& name);

    MenuStyle m_style;
    QMenuBar* m_bar = nullptr;
    QHash<QString, QMenu*> m_menus;
    QHash<QString, QAction*> m_entries;
    QHash<QString, QList<QAction*>> m_listEntries;
};

} // namespace shell
