#include "shell/message_window.h"

#include "core/config_store.h"
#include "core/interfaces.h"
#include "core/services.h"
#include "widgets/title_strip.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace shell {

namespace {

constexpr int kMargin = 16;

QPushButton* makeButton(QWidget* parent, const QString& name, const QString& caption)
{
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(name);
    button->setAccessibleName(QString(caption).remove(QLatin1Char('&')));
    return button;
}

} // namespace

frmMsgWindow::frmMsgWindow(QWidget* parent)
    : QWidget(parent, Qt::Dialog | Qt::FramelessWindowHint)
{
    setObjectName(QStringLiteral("frmMsg"));
    setWindowTitle(QStringLiteral("Import..."));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(1, 1, 1, 1);
    auto* strip = new widgets::TitleStrip(this);
    strip->setCaption(QStringLiteral("Import..."));
    strip->applyLook();
    column->addWidget(strip);
    connect(strip, &widgets::TitleStrip::closeRequested, this, &QWidget::close);

    auto* text = new QLabel(QStringLiteral("Now Import to Vistara?"), this);
    text->setObjectName(QStringLiteral("Label1"));
    text->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->addWidget(text);

    auto* row = new QHBoxLayout;
    row->setContentsMargins(kMargin, 0, kMargin, kMargin);
    QPushButton* ok = makeButton(this, QStringLiteral("Ok"), QStringLiteral("&Ok"));
    QPushButton* cancel = makeButton(this, QStringLiteral("Cancel"), QStringLiteral("&Cancel"));
    row->addStretch();
    row->addWidget(ok);
    row->addWidget(cancel);
    column->addLayout(row);
    connect(ok, &QPushButton::clicked, this, [this] { answer(true); });
    connect(cancel, &QPushButton::clicked, this, [this] { answer(false); });
    ok->setFocus();
}

void frmMsgWindow::answer(bool import)
{
    if (core::ConfigStore* config = core::services().config) {
        config->write(QStringLiteral("WinState"), QStringLiteral("0"));
    }
    close();
    if (import && core::services().mainWindow != nullptr) {
        core::services().mainWindow->PasteTesselia();
    }
}

} // namespace shell
