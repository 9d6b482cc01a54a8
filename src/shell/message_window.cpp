#include "shell/message_window.h"

#include "core/settings.h"
#include "core/window_registry.h"
#include "shell/main_window.h"
#include "widgets/window_parts.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

frmMsg::frmMsg()
    : StripWindow(QStringLiteral("Import..."))
{
    setObjectName(core::windowName(core::Window::frmMsg));
    auto* text = new QLabel(QStringLiteral("Now Import to Vistara?"), this);
    text->setObjectName(QStringLiteral("Label1"));
    content().addWidget(text);
    QPushButton* ok = widgets::makeButton(*this, QStringLiteral("Ok"), QStringLiteral("&Ok"));
    QPushButton* cancel =
        widgets::makeButton(*this, QStringLiteral("Cancel"), QStringLiteral("&Cancel"));
    widgets::addButtonRow(content(), {ok, cancel});
    setKeyButtons(ok, cancel);
    connect(ok, &QPushButton::clicked, this, [this] { answer(true); });
    connect(cancel, &QPushButton::clicked, this, [this] { answer(false); });
    ok->setFocus();
}

void frmMsg::answer(bool import)
{
    core::store(core::kAskToImport, false);
    close();
    auto* form = qobject_cast<Form1*>(core::windows().find(core::Window::Form1));
    if (import && form != nullptr) {
        form->PasteTesselia();
    }
}
