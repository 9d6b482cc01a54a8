#include "files/favourite_window.h"

#include "core/interfaces.h"
#include "core/services.h"
#include "files/list_window_parts.h"
#include "files/text_list.h"

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace {

constexpr int kFieldWidth = 320; // pixels

} // namespace

Favorties::Favorties(QWidget* parent)
    : QWidget(parent, Qt::Dialog | Qt::FramelessWindowHint)
{
    setObjectName(QStringLiteral("Favorties"));
    QVBoxLayout* column = files::addTitledColumn(*this, QStringLiteral("Add to Favorties"));
    const core::MainWindow* window = core::services().mainWindow;

    m_underName = files::addOption(*column, *this, QStringLiteral("Option1"),
                                   QStringLiteral("Under this &name:"));
    m_newName = files::addField(*column, *this, QStringLiteral("Newname"),
                                QStringLiteral("Name of the favourite"));
    m_newName->setMinimumWidth(kFieldWidth);
    QRadioButton* underPath = files::addOption(*column, *this, QStringLiteral("Option2"),
                                               QStringLiteral("Under its &path:"));
    m_newPath = files::addField(*column, *this, QStringLiteral("Newpath"),
                                QStringLiteral("Path of the favourite"));
    m_underName->setChecked(true);
    m_newPath->setText(window != nullptr ? window->Xiala() : QString());
    m_newPath->setCursorPosition(0);
    connect(m_newName, &QLineEdit::textEdited, m_underName,
            [this] { m_underName->setChecked(true); });
    connect(m_newPath, &QLineEdit::textEdited, underPath,
            [underPath] { underPath->setChecked(true); });

    QPushButton* ok = files::makeButton(*this, QStringLiteral("Addok"), QStringLiteral("&Ok"));
    QPushButton* cancel =
        files::makeButton(*this, QStringLiteral("AddCancel"), QStringLiteral("&Cancel"));
    files::addButtonRow(*column, {ok, cancel});
    connect(ok, &QPushButton::clicked, this, &Favorties::add);
    connect(cancel, &QPushButton::clicked, this, &QWidget::close);
    ok->setDefault(true);
    m_newName->setFocus();
}

void Favorties::add()
{
    if (core::ConfigStore* config = core::services().config) {
        const QString name = m_underName->isChecked() ? m_newName->text() : m_newPath->text();
        files::addNamed(files::kFavourites, {name, m_newPath->text()}, *config);
    }
    if (core::MainWindow* window = core::services().mainWindow) {
        window->refillListMenus();
    }
    close();
}
