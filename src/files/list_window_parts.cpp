#include "files/list_window_parts.h"

#include "widgets/focus_field.h"
#include "widgets/title_strip.h"

#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>

namespace files {

namespace {

constexpr int kMargin = 14; // pixels
constexpr int kSpacing = 8;

} // namespace

QVBoxLayout* addTitledColumn(QWidget& window, const QString& caption)
{
    window.setWindowTitle(caption);
    auto* outer = new QVBoxLayout(&window);
    outer->setContentsMargins(1, 1, 1, 1);
    outer->setSpacing(0);
    auto* strip = new widgets::TitleStrip(&window);
    strip->setCaption(caption);
    strip->applyLook();
    outer->addWidget(strip);
    QObject::connect(strip, &widgets::TitleStrip::closeRequested, &window, &QWidget::close);
    const auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), &window);
    QObject::connect(escape, &QShortcut::activated, &window, &QWidget::close);
    auto* column = new QVBoxLayout;
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->setSpacing(kSpacing);
    outer->addLayout(column);
    return column;
}

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
    auto* field = new widgets::FocusField(&window);
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

void addButtonRow(QVBoxLayout& column, std::initializer_list<QPushButton*> buttons)
{
    auto* row = new QHBoxLayout;
    row->addStretch();
    for (QPushButton* button : buttons) {
        row->addWidget(button);
    }
    column.addLayout(row);
}

} // namespace files
