#pragma once

#include <QHash>
#include <QString>
#include <functional>

class QToolButton;
class QWidget;
class chameleonButton;

namespace shell {

struct ButtonRow;
struct KeyButtonRow;

// The two rows of buttons over the work area, built from the command table.
class Toolbars {
public:
    using Trigger = std::function<void(const ButtonRow& row)>;
    using KeyTrigger = std::function<void(const KeyButtonRow& row)>;

    Toolbars(QWidget& parent, Trigger trigger, KeyTrigger keyTrigger);

    [[nodiscard]] QWidget* commands() const { return m_commands; } // band 1
    [[nodiscard]] QWidget* keys() const { return m_keys; }         // band 3

    // An entry of Tbmenu; null where there is none.
    [[nodiscard]] chameleonButton* button(int index) const { return m_buttons.value(index); }
    [[nodiscard]] chameleonButton* keyButton(const QString& key) const
    {
        return m_keyButtons.value(key);
    }

private:
    QWidget* m_commands;
    QWidget* m_keys;
    QHash<int, chameleonButton*> m_buttons;
    QHash<QString, chameleonButton*> m_keyButtons;
};

} // namespace shell
