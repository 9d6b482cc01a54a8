#include "files/favourite_window.h"

#include "core/file_field.h"
#include "core/main_menus.h"
#include "core/services.h"
#include "core/window_names.h"
#include "files/text_list.h"
#include "widgets/form_builder.h"

#include <QLineEdit>
#include <QRadioButton>

namespace {

constexpr int kFieldWidth = 320; // pixels

} // namespace

Favorties::Favorties()
    : StripWindow(QStringLiteral("Add to Favorties"))
{
    setObjectName(core::windowName(core::Window::Favorties));
    const core::FileField* field = core::services().field;

    widgets::FormBuilder form(*this);
    m_underName = form.add(new QRadioButton("Under this &name:"), "Option1");
    m_newName = form.addField("Newname", "Name of the favourite");
    m_newName->setMinimumWidth(kFieldWidth);
    auto* underPath = form.add(new QRadioButton("Under its &path:"), "Option2");
    m_newPath = form.addField("Newpath", "Path of the favourite");
    m_underName->setChecked(true);
    m_newPath->setText(field != nullptr ? field->Xiala() : QString());
    m_newPath->setCursorPosition(0);
    connect(m_newName, &QLineEdit::textEdited, m_underName,
            [this] { m_underName->setChecked(true); });
    connect(m_newPath, &QLineEdit::textEdited, underPath,
            [underPath] { underPath->setChecked(true); });

    form.addButtons({{"Addok", "&Ok", [this] { add(); }, widgets::PressedBy::Return},
                     {"AddCancel", "&Cancel", [this] { close(); }, widgets::PressedBy::Escape}});
    m_newName->setFocus();
}

void Favorties::add()
{
    const QString name = m_underName->isChecked() ? m_newName->text() : m_newPath->text();
    files::addNamed(files::kFavourites, {name, m_newPath->text()});
    if (core::MainMenus* menus = core::services().menus) {
        menus->refillListMenus();
    }
    close();
}
