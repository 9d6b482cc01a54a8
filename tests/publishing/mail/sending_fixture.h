#pragma once

#include "platform/desktop/pump.h"
#include "publishing/mail/smtp_client.h"
#include "support/fake_dialogs.h"
#include "support/fake_mail_sockets.h"
#include "support/set_clock.h"

#include <QStringList>
#include <gtest/gtest.h>

// What a sending shows, in order.
class ShownStatus : public mail::SendingStatus {
public:
    QStringList shown;

    void showStatus(const QString& text) override { shown.append(text); }
    void showBusy(bool busy) override
    {
        shown.append(busy ? QStringLiteral("(busy)") : QStringLiteral("(idle)"));
    }
};

// A client without any server yet.
class SendingTest : public testing::Test {
protected:
    SendingTest()
    {
        client->settings.MailServerName = QStringLiteral("mail.example.org");
        client->settings.MailServerPort = 2525;
        client->settings.MailFromAddress = QStringLiteral("me@example.org");
    }
    ~SendingTest() override { platform::resetClosing(); }

    static mail::MailDraft draft()
    {
        return {QStringLiteral("me@example.org"),
                QStringLiteral("you@example.net"),
                QStringLiteral("Hello"),
                QStringLiteral("<p>Hi</p>"),
                {}};
    }
    void send() { client->Send(draft()); }

    support::SetClock clock;
    support::FakeDialogs dialogs;
    ShownStatus status;
    std::unique_ptr<mail::SmtpClient> client = std::make_unique<mail::SmtpClient>(status);
};
