#pragma once

#include <QString>
#include <QVBoxLayout>
#include <initializer_list>

class QLineEdit;
class QPushButton;
class QRadioButton;
class QWidget;

// The parts that the small windows of the lists are put together from.
namespace files {

// Gives a window a title strip with a close box, Esc, and a column with margins below it.
QVBoxLayout* addTitledColumn(QWidget& window, const QString& caption);

QRadioButton* addOption(QVBoxLayout& column, QWidget& window, const QString& name,
                        const QString& caption);
QLineEdit* addField(QVBoxLayout& column, QWidget& window, const QString& name,
                    const QString& accessibleName);
QPushButton* makeButton(QWidget& window, const QString& name, const QString& caption);

// A row at the end of the column, the buttons at its right.
void addButtonRow(QVBoxLayout& column, std::initializer_list<QPushButton*> buttons);

} // namespace files
