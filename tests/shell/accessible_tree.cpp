#include "shell/accessible_tree.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSet>
#include <algorithm>
#include <array>

namespace accessible_tree {

namespace {

constexpr std::array kNamedRoles = {
    QAccessible::Button,    QAccessible::ButtonDropDown, QAccessible::ButtonMenu,
    QAccessible::CheckBox,  QAccessible::RadioButton,    QAccessible::EditableText,
    QAccessible::ComboBox,  QAccessible::SpinBox,        QAccessible::List,
    QAccessible::ListItem,  QAccessible::Tree,           QAccessible::TreeItem,
    QAccessible::Table,     QAccessible::Cell,           QAccessible::Slider,
    QAccessible::ScrollBar, QAccessible::Splitter,       QAccessible::Grip,
    QAccessible::Dial,      QAccessible::PageTab,        QAccessible::MenuBar,
    QAccessible::PopupMenu, QAccessible::MenuItem,       QAccessible::Window,
    QAccessible::Dialog,    QAccessible::Link,           QAccessible::ProgressBar,
};

// Scroll bars show only a while and menus open on their own, yet both are read out.
bool isControl(const QWidget& widget)
{
    return widget.focusPolicy() != Qt::NoFocus || qobject_cast<const QAbstractSlider*>(&widget) ||
           qobject_cast<const QAbstractButton*>(&widget) ||
           qobject_cast<const QAbstractItemView*>(&widget) ||
           qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QLineEdit*>(&widget) ||
           qobject_cast<const QMenu*>(&widget) || qobject_cast<const QMenuBar*>(&widget);
}

QString nodeText(const QAccessibleInterface& part)
{
    const QObject* object = part.object();
    const QString name = object != nullptr ? object->objectName() : QString();
    const QString kind = object != nullptr ? QString::fromLatin1(object->metaObject()->className())
                                           : QStringLiteral("part");
    return name.isEmpty() ? kind : kind + QLatin1Char('#') + name;
}

QString pathOf(const QWidget& widget)
{
    QString path;
    for (const QWidget* part = &widget; part != nullptr; part = part->parentWidget()) {
        const QString name = part->objectName();
        const QString kind = QString::fromLatin1(part->metaObject()->className());
        path.prepend(QLatin1Char('/') + (name.isEmpty() ? kind : kind + QLatin1Char('#') + name));
    }
    return path;
}

template<typename Outer> bool isInside(const QWidget& widget)
{
    const QWidget* part = widget.parentWidget();
    while (part != nullptr && qobject_cast<const Outer*>(part) == nullptr) {
        part = part->parentWidget();
    }
    return part != nullptr;
}

class Walk {
public:
    explicit Walk(const std::function<void(const Part&)>& visit)
        : m_visit(visit)
    {
    }

    void enter(QAccessibleInterface* part, const QString& above)
    {
        if (part == nullptr || !part->isValid()) {
            return;
        }
        const QString path = above + QLatin1Char('/') + nodeText(*part);
        auto* widget = qobject_cast<QWidget*>(part->object());
        if (widget != nullptr) {
            m_seen.insert(widget);
        }
        tell(*part, widget, path);
        for (int k = 0; k < part->childCount(); ++k) {
            enter(part->child(k), path);
        }
    }

    void enterLeftOut(QWidget& window)
    {
        for (QWidget* widget : window.findChildren<QWidget*>()) {
            const bool isOwnWindow = widget->window() != &window &&
                                     qobject_cast<QMenu*>(widget->window()) == nullptr &&
                                     widget->window()->windowType() != Qt::Popup;
            // A heading never scrolls by its bars.
            const bool isOfHeading =
                qobject_cast<QScrollBar*>(widget) != nullptr && isInside<QHeaderView>(*widget);
            if (m_seen.contains(widget) || !isControl(*widget) || isOwnWindow || isOfHeading) {
                continue;
            }
            if (QAccessibleInterface* part = QAccessible::queryAccessibleInterface(widget)) {
                tell(*part, widget, pathOf(*widget));
            }
        }
    }

private:
    void tell(const QAccessibleInterface& part, QWidget* widget, const QString& path)
    {
        m_visit({path, part.text(QAccessible::Name), part.role(), widget,
                 part.state().focusable != 0U, part.role() == QAccessible::Separator});
    }

    const std::function<void(const Part&)>& m_visit;
    QSet<const QWidget*> m_seen;
};

} // namespace

void walk(QWidget& window, const std::function<void(const Part&)>& visit)
{
    Walk walk(visit);
    walk.enter(QAccessible::queryAccessibleInterface(&window), QString());
    walk.enterLeftOut(window);
}

bool needsName(const Part& part)
{
    if (part.isSeparator) {
        return false;
    }
    const bool named =
        std::find(kNamedRoles.begin(), kNamedRoles.end(), part.role) != kNamedRoles.end();
    return named || part.isFocusable || (part.widget != nullptr && isControl(*part.widget));
}

bool isInternalName(const QString& name)
{
    static const QRegularExpression pattern(
        QStringLiteral("_|^(opt|cmd|Cmd|mnu|Mnu|txt|lbl|pic|frm|Frm|Tb)[A-Z0-9a-z]*[A-Z0-9]"));
    return pattern.match(name).hasMatch();
}

} // namespace accessible_tree
