#pragma once

#include <QString>
#include <initializer_list>

class QAbstractScrollArea;
class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QVBoxLayout;
class QWidget;
class chameleonButton;

// Parts that small windows are put together from. Each gets its objectName and an accessible name,
// and belongs to the window.
namespace widgets {

QRadioButton* addOption(QVBoxLayout& column, QWidget& window, const QString& name,
                        const QString& caption);
QLineEdit* addField(QVBoxLayout& column, QWidget& window, const QString& name,
                    const QString& accessibleName);
QPushButton* makeButton(QWidget& window, const QString& name, const QString& caption);

// Names for a screen reader where the toolkit makes the parts: the bars of a list or tree, and the
// list that a combo box drops down.
void nameScrollBars(QAbstractScrollArea& area);
void nameDropDown(QComboBox& box, const QString& accessibleName);

// On a toolbar Return presses the button that has the focus, as Space does everywhere.
void pressOnReturn(chameleonButton& button);

// A row at the end of the column, the buttons at its right.
void addButtonRow(QVBoxLayout& column, std::initializer_list<QPushButton*> buttons);

} // namespace widgets
