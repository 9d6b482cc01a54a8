#include "files/favourite_window.h"

#include "core/interfaces.h"
#include "core/services.h"
#include "core/window_names.h"
#include "files/text_list.h"
#include "widgets/window_parts.h"

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

constexpr int kFieldWidth = 320; // pixels

} // namespace

Favorties::Favorties()
    : StripWindow(QStringLiteral("Add to Favorties"))
{
    setObjectName(core::windowName(core::Window::Favorties));
    const core::MainWindow* window = core::services().mainWindow;

    m_underName = widgets::addOption(content(), *this, QStringLiteral("Option1"),
                                     QStringLiteral("Under this &name:"));
    m_newName = widgets::addField(content(), *this, QStringLiteral("Newname"),
                                  QStringLiteral("Name of the favourite"));
    m_newName->setMinimumWidth(kFieldWidth);
    QRadioButton* underPath = widgets::addOption(content(), *this, QStringLiteral("Option2"),
                                                 QStringLiteral("Under its &path:"));
    m_newPath = widgets::addField(content(), *this, QStringLiteral("Newpath"),
                                  QStringLiteral("Path of the favourite"));
    m_underName->setChecked(true);
    m_newPath->setText(window != nullptr ? window->Xiala() : QString());
    m_newPath->setCursorPosition(0);
    connect(m_newName, &QLineEdit::textEdited, m_underName,
            [this] { m_underName->setChecked(true); });
    connect(m_newPath, &QLineEdit::textEdited, underPath,
            [underPath] { underPath->setChecked(true); });

    QPushButton* ok = widgets::makeButton(*this, QStringLiteral("Addok"), QStringLiteral("&Ok"));
    QPushButton* cancel =
        widgets::makeButton(*this, QStringLiteral("AddCancel"), QStringLiteral("&Cancel"));
    widgets::addButtonRow(content(), {ok, cancel});
    connect(ok, &QPushButton::clicked, this, &Favorties::add);
    connect(cancel, &QPushButton::clicked, this, &QWidget::close);
    setKeyButtons(ok, cancel);
    m_newName->setFocus();
}

void Favorties::add()
{
    const QString name = m_underName->isChecked() ? m_newName->text() : m_newPath->text();
    files::addNamed(files::kFavourites, {name, m_newPath->text()});
    if (core::MainWindow* window = core::services().mainWindow) {
        window->refillListMenus();
    }
    close();
}
