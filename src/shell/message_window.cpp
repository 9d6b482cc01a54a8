#include "shell/message_window.h"

#include "core/settings.h"
#include "core/window_registry.h"
#include "shell/main_window.h"
#include "widgets/form_builder.h"

#include <QLabel>
#include <QPushButton>

frmMsg::frmMsg()
    : StripWindow(QStringLiteral("Import..."))
{
    setObjectName(core::windowName(core::Window::frmMsg));
    widgets::FormBuilder form(*this);
    form.add(new QLabel(QStringLiteral("Now Import to Vistara?")), "Label1");
    QPushButton* ok = form.addButtons(
        {{"Ok", "&Ok", [this] { answer(true); }, widgets::PressedBy::Return},
         {"Cancel", "&Cancel", [this] { answer(false); }, widgets::PressedBy::Escape}});
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
