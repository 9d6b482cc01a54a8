#include "publishing/mail/loopback_mail_server.h"
#include "publishing/mail/running_mail_server.h"
#include "sending_fixture.h"

namespace {

using test::RunningMailServer;

class MailServersTest : public SendingTest {
protected:
    MailServersTest() { client->settings.MailServerName = QStringLiteral("127.0.0.1"); }

    // Sends to a server of the mode with the certificate, as the settings have it.
    void sendTo(const char* mode, const char* certificate, const mail::MailDraft& draft)
    {
        send(post.server(mode, certificate), draft);
    }
    void send(const QStringList& arguments, const mail::MailDraft& draft)
    {
        const RunningMailServer server(arguments);
        client->settings.MailServerPort = qint16(server.port());
        client->Send(draft);
    }
    void secure(mail::MailSecurity security)
    {
        client->settings.security = security;
        client->settings.user = QStringLiteral("me");
        client->password = QStringLiteral("secret");
    }

    support::TempTree tree;
    test::MailPost post{tree};
};

mail::MailDraft richDraft()
{
    return {QStringLiteral("J\u00F6rg <me@example.org>"),
            QStringLiteral("you@example.net, Them <them@example.net>"),
            QStringLiteral("Gr\u00FC\u00DFe"),
            QStringLiteral("<p>Hi\n.\n..dots</p>\u20AC\n"),
            {}};
}

struct Refused {
    const char* certificate;
    mail::MailSecurity security;
};

} // namespace

TEST_F(MailServersTest, TheClassicDialogueArrivesAtBothServers)
{
    const QString expected = QStringLiteral("me@example.org\nyou@example.net");
    sendTo("plain", nullptr, draft());
    EXPECT_EQ(post.envelope(), expected);
    EXPECT_EQ(post.message()[QStringLiteral("subject")].toString(), QStringLiteral("Hello"));
    EXPECT_EQ(post.message()[QStringLiteral("body")].toString().trimmed(),
              QStringLiteral("<p>Hi</p>"));
    post.empty();

    send(post.otherServer(), draft());
    EXPECT_EQ(post.envelope(), expected);
    EXPECT_EQ(post.message()[QStringLiteral("subject")].toString(), QStringLiteral("Hello"));
    EXPECT_EQ(status.shown.back(), QStringLiteral("Status : Send Complete"));
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(MailServersTest, EncryptedMailArrivesWithItsPicture)
{
    std::string picture;
    for (unsigned i = 0; i < 300000; ++i) {
        picture.push_back(char(i * 7919 >> 5));
    }
    tree.add({"B\u00FCro 1.jpg", picture});
    for (const mail::MailSecurity security :
         {mail::MailSecurity::StartTls, mail::MailSecurity::Tls}) {
        secure(security);
        mail::MailDraft draft = richDraft();
        draft.picture = tree.path("B\u00FCro 1.jpg");
        sendTo(security == mail::MailSecurity::Tls ? "tls" : "starttls", "good.pem", draft);
        EXPECT_EQ(dialogs.boxTexts(), QStringList());
        EXPECT_EQ(status.shown.back(), QStringLiteral("Status : Send Complete"));
        EXPECT_EQ(post.envelope(),
                  QStringLiteral("me@example.org\nyou@example.net\nthem@example.net"));
        const QJsonObject mail = post.message();
        EXPECT_EQ(mail[QStringLiteral("subject")].toString(), draft.subject);
        EXPECT_EQ(mail[QStringLiteral("from")].toString(), draft.from);
        EXPECT_EQ(mail[QStringLiteral("to")].toString(), draft.to);
        // Lines of a mail end in CR LF, whatever they ended in before.
        EXPECT_EQ(mail[QStringLiteral("body")].toString().remove(u'\r'), draft.html);
        EXPECT_EQ(mail[QStringLiteral("name")].toString(), QStringLiteral("B\u00FCro 1.jpg"));
        EXPECT_EQ(mail[QStringLiteral("type")].toString(), QStringLiteral("image/jpeg"));
        EXPECT_EQ(mail[QStringLiteral("defects")].toString(), QString());
        EXPECT_TRUE(post.attachment() == picture);
        post.empty();
    }
}

TEST_F(MailServersTest, NoCertificateButAGoodOneIsTrusted)
{
    for (const Refused& row : {Refused{"expired.pem", mail::MailSecurity::Tls},
                               Refused{"other.pem", mail::MailSecurity::StartTls},
                               Refused{"alone.pem", mail::MailSecurity::Tls}}) {
        SCOPED_TRACE(row.certificate);
        secure(row.security);
        dialogs.boxes.clear();
        sendTo(row.security == mail::MailSecurity::Tls ? "tls" : "starttls", row.certificate,
               richDraft());
        ASSERT_EQ(dialogs.boxes.size(), 1U);
        EXPECT_TRUE(dialogs.boxes[0].text.startsWith(
            QStringLiteral("The mail server 127.0.0.1 can't be trusted.\n")))
            << dialogs.boxes[0].text.toStdString();
        EXPECT_EQ(dialogs.boxes[0].icon, platform::BoxIcon::Critical);
        EXPECT_TRUE(post.isEmpty());
        EXPECT_EQ(status.shown.back(), QStringLiteral("Status: Mail message not sent"));
    }
}

TEST_F(MailServersTest, RefusalsComeWithTheServersWords)
{
    secure(mail::MailSecurity::Tls);
    client->password = QStringLiteral("wrong");
    sendTo("tls", "good.pem", richDraft());
    client->password = QStringLiteral("secret");
    mail::MailDraft nobody = richDraft();
    nobody.to = QStringLiteral("you@example.net, nobody@example.net");
    sendTo("tls", "good.pem", nobody);
    ASSERT_EQ(dialogs.boxes.size(), 2U);
    EXPECT_TRUE(dialogs.boxes[0].text.startsWith(
        QStringLiteral("The mail server 127.0.0.1 refuses to log in the user me.\n"
                       "The server says: 535 ")));
    EXPECT_EQ(dialogs.boxes[1].text,
              QStringLiteral("The mail server 127.0.0.1 refuses the recipient nobody@example.net.\n"
                             "The server says: 550 5.1.1 No such mailbox\nNothing was sent."));
    EXPECT_TRUE(post.isEmpty());
}

TEST_F(MailServersTest, NameAndPasswordAreToldOneByOne)
{
    secure(mail::MailSecurity::Tls);
    client->password = QStringLiteral("wrong");
    sendTo("login", "good.pem", richDraft());
    ASSERT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_TRUE(dialogs.boxes[0].text.contains(QStringLiteral("refuses to log in the user me.")));
    EXPECT_TRUE(post.isEmpty());
    client->password = QStringLiteral("secret");
    sendTo("login", "good.pem", richDraft());
    EXPECT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_FALSE(post.isEmpty());
}

TEST_F(MailServersTest, AServerWithoutEncryptionGetsNothing)
{
    secure(mail::MailSecurity::StartTls);
    sendTo("plain", nullptr, richDraft());
    ASSERT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_TRUE(dialogs.boxes[0].text.contains(QStringLiteral("offers no encryption")));
    secure(mail::MailSecurity::Tls);
    clock.step = 5;
    sendTo("plain", nullptr, richDraft());
    EXPECT_EQ(dialogs.boxes.size(), 2U);
    EXPECT_TRUE(post.isEmpty());
}

TEST_F(MailServersTest, PortsAndNamesThatLeadNowhereAreTold)
{
    secure(mail::MailSecurity::Tls);
    for (const int port : {0, -1, 1}) {
        client->settings.MailServerPort = qint16(port);
        client->Send(richDraft());
    }
    client->settings.MailServerName = QStringLiteral("no such host");
    client->Send(richDraft());
    ASSERT_EQ(dialogs.boxes.size(), 4U);
    for (const support::FakeDialogs::Box& box : dialogs.boxes) {
        EXPECT_TRUE(box.text.contains(QStringLiteral("can't be reached.\n")))
            << box.text.toStdString();
    }
}

TEST_F(MailServersTest, WhatCannotBeSentIsToldBeforeAnyoneIsAsked)
{
    secure(mail::MailSecurity::Tls);
    mail::MailDraft wrong = richDraft();
    wrong.to = QStringLiteral("you@example.net, them");
    client->Send(wrong);
    wrong.to = QStringLiteral(" , ");
    client->Send(wrong);
    wrong = richDraft();
    wrong.picture = QStringLiteral("/nowhere/a.jpg");
    client->Send(wrong);
    client->settings.MailFromAddress = QStringLiteral("ERROR");
    client->Send(richDraft());
    EXPECT_EQ(
        dialogs.boxTexts(),
        QStringList({QStringLiteral("\u201Cthem\u201D is no mail address.\nNothing was sent."),
                     QStringLiteral("The mail has no recipient.\nNothing was sent."),
                     QStringLiteral("The picture /nowhere/a.jpg can't be read.\nNothing was sent."),
                     QStringLiteral("\u201CERROR\u201D is no mail address.\nNothing was sent.")}));
}

TEST_F(MailServersTest, ASilentServerIsLeftAfterItsTime)
{
    test::LoopbackMailServer silent;
    silent.onReply = [](const QByteArray&, const QByteArray&) {};
    client->settings.MailServerPort = qint16(silent.port());
    for (const mail::MailSecurity security :
         {mail::MailSecurity::StartTls, mail::MailSecurity::Tls}) {
        secure(security);
        clock.step = 20;
        client->Send(richDraft());
    }
    ASSERT_EQ(dialogs.boxes.size(), 2U);
    EXPECT_TRUE(dialogs.boxes[0].text.endsWith(
        QStringLiteral("It didn't answer for 60 seconds.\nNothing was sent.")));
}
