#include "widgets/window_parts.h"

#include "widgets/chameleon_button.h"
#include "widgets/focus_field.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QVBoxLayout>

namespace widgets {

QRadioButton* addOption(QVBoxLayout& column, QWidget& window, const QString& name,
                        const QString& caption)
{
    auto* option = new QRadioButton(caption, &window);
    option->setObjectName(name);
    option->setAccessibleName(QString(caption).remove(QLatin1Char('&')));
    column.addWidget(option);
    return option;
}

QLineEdit* addField(QVBoxLayout& column, QWidget& window, const QString& name,
                    const QString& accessibleName)
{
    auto* field = new FocusField(&window);
    field->setObjectName(name);
    field->setAccessibleName(accessibleName);
    column.addWidget(field);
    return field;
}

QPushButton* makeButton(QWidget& window, const QString& name, const QString& caption)
{
    auto* button = new QPushButton(caption, &window);
    button->setObjectName(name);
    button->setAccessibleName(QString(caption).remove(QLatin1Char('&')));
    return button;
}

void nameScrollBars(QAbstractScrollArea& area)
{
    area.verticalScrollBar()->setAccessibleName(QStringLiteral("Scroll up and down"));
    area.horizontalScrollBar()->setAccessibleName(QStringLiteral("Scroll sideways"));
}

void nameDropDown(QComboBox& box, const QString& accessibleName)
{
    box.view()->setAccessibleName(accessibleName);
    nameScrollBars(*box.view());
}

void pressOnReturn(chameleonButton& button)
{
    QObject::connect(&button, &chameleonButton::KeyDown, &button, [&button](int key) {
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            button.click();
        }
    });
}

void addButtonRow(QVBoxLayout& column, std::initializer_list<QPushButton*> buttons)
{
    auto* row = new QHBoxLayout;
    row->addStretch();
    for (QPushButton* button : buttons) {
        row->addWidget(button);
    }
    column.addLayout(row);
}

} // namespace widgets
