#pragma once

#include "core/window_registry.h"
#include "platform/desktop/pump.h"
#include "publishing/mail/html_editor.h"
#include "publishing/mail/mail_window.h"
#include "publishing/mail/windows.h"
#include "support/fake_dialogs.h"
#include "support/fake_main_window.h"
#include "support/memory_config_store.h"
#include "support/temp_tree.h"
#include "widgets/chameleon_button.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

namespace test {

// The settings of a mailer, a settings file, and both windows in the registry.
class MailTest : public testing::Test {
protected:
    MailTest()
    {
        config.values = {{"Servername", "mail.example.com"},
                         {"Serverport", "25"},
                         {"Mailtext", "me@example.com"}};
        mail::registerWindows();
    }

    ~MailTest() override
    {
        core::windows().unload(core::Window::frmConfig);
        core::windows().unload(core::Window::frmMailSender);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        core::services().endProgram = {};
        platform::resetClosing();
    }

    frmMailSender& openComposer()
    {
        auto* window =
            qobject_cast<frmMailSender*>(core::windows().show(core::Window::frmMailSender));
        QApplication::processEvents();
        return *window;
    }

    static QWidget* composer() { return core::windows().find(core::Window::frmMailSender); }
    static QWidget* setup() { return core::windows().find(core::Window::frmConfig); }

    template<typename Part> static Part& part(QWidget* window, const QString& name)
    {
        return *window->findChild<Part*>(name);
    }
    static QLineEdit& txtMail(int index)
    {
        return part<QLineEdit>(composer(), QStringLiteral("txtMail_%1").arg(index));
    }
    static mail::HtmlEditor& editor() { return part<mail::HtmlEditor>(composer(), "DHTML"); }
    static QString status() { return part<QLabel>(composer(), "lblStatus").text(); }
    static chameleonButton& tool(int index)
    {
        return part<chameleonButton>(composer(), QStringLiteral("Toolbar1_Button_%1").arg(index));
    }

    static void fill(const QString& to, const QString& from, const QString& subject,
                     const QString& text)
    {
        txtMail(0).setText(to);
        txtMail(1).setText(from);
        txtMail(2).setText(subject);
        editor().setPlainText(text);
    }

    // Runs an action once the setup stands on the screen, from its own event loop.
    static void whenSetupOpens(const std::function<void()>& action)
    {
        auto* poll = new QTimer(qApp);
        QObject::connect(poll, &QTimer::timeout, poll, [poll, action] {
            if (setup() != nullptr && setup()->isVisible()) {
                poll->deleteLater();
                poll->stop();
                action();
            }
        });
        poll->start(1);
    }

    support::TempTree tree{{"app/config.ini", "[QUILLPOST]\n"}};
    support::MemoryConfigStore config;
    support::FakeMainWindow form;
    support::FakeDialogs dialogs;
};

} // namespace test
