#pragma once

#include <QString>
#include <initializer_list>

class QLineEdit;
class QPushButton;
class QRadioButton;
class QVBoxLayout;
class QWidget;

// Parts that small windows are put together from. Each gets its objectName and an accessible name,
// and belongs to the window.
namespace widgets {

QRadioButton* addOption(QVBoxLayout& column, QWidget& window, const QString& name,
                        const QString& caption);
QLineEdit* addField(QVBoxLayout& column, QWidget& window, const QString& name,
                    const QString& accessibleName);
QPushButton* makeButton(QWidget& window, const QString& name, const QString& caption);

// A row at the end of the column, the buttons at its right.
void addButtonRow(QVBoxLayout& column, std::initializer_list<QPushButton*> buttons);

} // namespace widgets
