#include "shell/menus.h"

#include "core/settings.h"
#include "shell/command_table.h"

#include <QAction>
#include <QChildEvent>
#include <QMenuBar>
#include <QToolButton>

namespace shell {

namespace {

QString keyOf(const QString& array, int index)
{
    return index == kNoIndex ? array : array + QLatin1Char('_') + QString::number(index);
}

// The bar makes a menu of its own for the entries that a narrow window has no room for.
class MenuBar : public QMenuBar {
public:
    MenuBar(QWidget& owner, MenuStyle& style)
        : QMenuBar(&owner)
        , m_style(style)
    {
    }

protected:
    void childEvent(QChildEvent* event) override
    {
        QMenuBar::childEvent(event);
        auto* menu = qobject_cast<QMenu*>(event->child());
        if (event->polished() && menu != nullptr) {
            m_style.applyTo(*menu);
        }
    }

private:
    MenuStyle& m_style;
};

// The key is shown beside the caption only: keys belong to the viewer, and one that were a shortcut
// of the entry would act while a menu is open.
QString withKey(const QString& caption, const char* keyText)
{
    return keyText == nullptr ? caption
                              : caption + QLatin1Char('\t') + QString::fromLatin1(keyText);
}

// A caption as it is read out, without the mark of its access key.
QString spoken(QString caption)
{
    return caption.remove(QLatin1Char('&'));
}

// The button of a bar that is too narrow for its menus, and what it opens. The bar takes the menu
// that it finds there.
void nameOverflow(QMenuBar& bar)
{
    const QString name = QStringLiteral("More menus");
    auto* menu = new QMenu(&bar);
    menu->setAccessibleName(name);
    for (QToolButton* button : bar.findChildren<QToolButton*>()) {
        button->setAccessibleName(name);
        button->setToolTip(name);
        button->setMenu(menu);
    }
}

} // namespace

Menus::Menus(QWidget& owner, Trigger trigger)
    : m_bar(new MenuBar(owner, m_style))
{
    m_bar->setNativeMenuBar(false);
    m_bar->setObjectName(QString::fromLatin1(kMenuBar));
    m_bar->setAccessibleName(QStringLiteral("Menu"));
    m_style.applyTo(*m_bar);
    nameOverflow(*m_bar);
    makeMenu(owner, QString::fromLatin1(kRightMenu))
        ->setAccessibleName(QStringLiteral("Commands for the picture"));
    const bool isClassic = core::setting(core::kClassic);
    for (const MenuRow& row : menuRows()) {
        const QString menuName = QString::fromLatin1(row.menu);
        const QString caption = QString::fromLatin1(row.caption);
        auto* action = new QAction(&owner);
        if (caption == QLatin1StringView(kSeparator)) {
            action->setSeparator(true);
        } else {
            action->setText(withKey(caption, row.keyText));
        }
        action->setCheckable(row.check == Check::Toggles);
        action->setVisible(row.since == Since::TheStart || !isClassic);
        if (row.opens != nullptr) {
            QMenu* opened = makeMenu(owner, QString::fromLatin1(row.opens));
            opened->setAccessibleName(spoken(caption));
            action->setMenu(opened);
        }
        if (row.run != nullptr) {
            QObject::connect(action, &QAction::triggered, &owner,
                             [&row, action, trigger](bool checked) {
                                 // The command itself decides what is checked.
                                 if (action->isCheckable()) {
                                     action->setChecked(!checked);
                                 }
                                 trigger(row);
                             });
        }
        const QString name = keyOf(QString::fromLatin1(row.array), row.index);
        action->setObjectName(name);
        m_entries.insert(name, action);
        if (menuName == QLatin1StringView(kMenuBar)) {
            m_bar->addAction(action);
        } else {
            makeMenu(owner, menuName)->addAction(action);
        }
    }
}

QAction* Menus::entry(const QString& array, int index) const
{
    return m_entries.value(keyOf(array, index));
}

void Menus::setListEntries(const QString& menuName, const QString& array, int firstIndex,
                           const QStringList& captions, Chosen chosen)
{
    QMenu* const target = menu(menuName);
    for (QAction* old : std::as_const(m_listEntries[array])) {
        m_entries.remove(old->objectName());
        target->removeAction(old);
        old->deleteLater();
    }
    m_listEntries[array].clear();
    for (qsizetype i = 0; i < captions.size(); ++i) {
        const int index = firstIndex + static_cast<int>(i);
        // A name may hold the mark of access keys.
        QString caption = captions.at(i);
        caption.replace(QLatin1Char('&'), QStringLiteral("&&"));
        auto* action = new QAction(caption, target);
        action->setObjectName(keyOf(array, index));
        QObject::connect(action, &QAction::triggered, target, [chosen, index] { chosen(index); });
        target->addAction(action);
        m_listEntries[array].append(action);
        m_entries.insert(action->objectName(), action);
    }
}

QMenu* Menus::makeMenu(QWidget& owner, const QString& name)
{
    QMenu*& menu = m_menus[name];
    if (menu == nullptr) {
        menu = new QMenu(&owner);
        menu->setObjectName(QStringLiteral("menu_") + name);
        m_style.applyTo(*menu);
    }
    return menu;
}

} // namespace shell
