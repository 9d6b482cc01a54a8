#include "widgets/form_builder.h"

#include "widgets/focus_field.h"
#include "widgets/strip_window.h"
#include "widgets/title_strip.h"
#include "widgets/window_parts.h"

#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>

namespace widgets {

namespace {

constexpr int kPageSpacing = 14; // pixels

bool isPressedBy(const FormButton& button, PressedBy key)
{
    return button.keys == key || button.keys == PressedBy::ReturnAndEscape;
}

} // namespace

FormBuilder::FormBuilder(StripWindow& window)
    : FormBuilder(window, window.content())
{
}

FormBuilder::FormBuilder(StripWindow& window, QBoxLayout& layout)
    : m_window(window)
    , m_layout(layout)
{
}

FormBuilder FormBuilder::addRow(int stretch)
{
    auto* row = new QHBoxLayout;
    m_layout.addLayout(row, stretch);
    m_table = nullptr;
    return {m_window, *row};
}

FormBuilder FormBuilder::addColumn(int stretch)
{
    auto* column = new QVBoxLayout;
    m_layout.addLayout(column, stretch);
    m_table = nullptr;
    return {m_window, *column};
}

void FormBuilder::addStretch()
{
    m_layout.addStretch();
    m_table = nullptr;
}

FormBuilder FormBuilder::addPage(QStackedWidget& pages, const char* name, const char* spokenName)
{
    auto* page = own(new QWidget, name, spokenName);
    pages.addWidget(page);
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kPageSpacing);
    return {m_window, *column};
}

void FormBuilder::addText(const QString& text)
{
    place(*new QLabel(text, &m_window), 0);
}

void FormBuilder::addHeading(const QString& text)
{
    auto* heading = new QLabel(text, &m_window);
    QFont font = heading->font();
    font.setWeight(QFont::DemiBold);
    heading->setFont(font);
    place(*heading, 0);
}

void FormBuilder::addNote(const QString& text, int width)
{
    auto* note = new QLabel(text, &m_window);
    note->setWordWrap(true);
    note->setFixedWidth(width);
    // A stack doesn't ask its pages how high they are at their width.
    note->setMinimumHeight(note->heightForWidth(width));
    place(*note, 0);
}

QLineEdit* FormBuilder::addField(const char* name, const char* spokenName)
{
    return add(new FocusField, name, spokenName);
}

QPushButton* FormBuilder::addButtons(std::initializer_list<FormButton> buttons)
{
    FormBuilder row = addRow();
    row.addStretch();
    QPushButton* accept = nullptr;
    QAbstractButton* cancel = m_window.strip().closeBox();
    for (const FormButton& button : buttons) {
        auto* made = row.add(new QPushButton(QString::fromLatin1(button.caption)), button.name);
        QObject::connect(made, &QPushButton::clicked, &m_window, button.press);
        accept = isPressedBy(button, PressedBy::Return) ? made : accept;
        cancel = isPressedBy(button, PressedBy::Escape) ? made : cancel;
    }
    m_window.setKeyButtons(accept, cancel);
    return accept;
}

void FormBuilder::adopt(QWidget& part, const char* name, const char* spokenName)
{
    part.setParent(&m_window);
    part.setObjectName(QString::fromLatin1(name));
    part.setAccessibleName(QString::fromLatin1(spokenName));
    auto* button = qobject_cast<QAbstractButton*>(&part);
    if (button != nullptr && !button->text().isEmpty()) {
        button->setAccessibleName(button->text().remove(QLatin1Char('&')));
    }
    // A box for numbers has the focus by a field inside of it.
    if (const auto* box = qobject_cast<QAbstractSpinBox*>(&part)) {
        box->findChild<QLineEdit*>()->setAccessibleName(part.accessibleName());
    }
    if (auto* area = qobject_cast<QAbstractScrollArea*>(&part)) {
        nameScrollBars(*area);
    }
    for (QAbstractScrollArea* inner : part.findChildren<QAbstractScrollArea*>()) {
        nameScrollBars(*inner);
    }
}

void FormBuilder::place(QWidget& part, int stretch)
{
    m_layout.addWidget(&part, stretch);
    m_table = nullptr;
}

void FormBuilder::placeCaptioned(QLabel& caption, QWidget& part)
{
    if (m_table == nullptr) {
        m_table = new QGridLayout;
        m_layout.addLayout(m_table);
    }
    const int line = m_table->count() / 2;
    caption.setBuddy(&part);
    m_table->addWidget(&caption, line, 0);
    m_table->addWidget(&part, line, 1);
}

} // namespace widgets
