#include "publishing/mail/loopback_mail_server.h"
#include "smoke/smoke_fixture.h"

using namespace smoke;

class Mail : public SmokeTest {};

TEST_F(Mail, WritesAMailByKeysAndSendsIt)
{
    test::LoopbackMailServer server;
    settings["Servername"] = "127.0.0.1";
    settings["Serverport"] = std::to_string(server.port());
    settings["Mailtext"] = "me@example.com";
    writeSettings();
    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    session.click(WindowParts(session.inside()).viewer().center());
    session.key(QStringLiteral("e"));
    ASSERT_TRUE(DesktopSession::windowOpens(QStringLiteral("Send E-mail")));
    session.type(QStringLiteral("friend@example.org"));
    session.key(QStringLiteral("alt+s"));
    session.type(QStringLiteral("The lake"));
    session.key(QStringLiteral("Tab"));
    session.key(QStringLiteral("ctrl+b"));
    session.type(QStringLiteral("Greetings"));
    session.key(QStringLiteral("ctrl+Return"));
    EXPECT_TRUE(waitUntil([&] { return server.commands.contains("QUIT") && server.isAlone(); }));
    EXPECT_TRUE(server.commands.contains("RCPT TO: friend@example.org"));
    EXPECT_TRUE(server.message.contains("Subject: The lake\r\n"));
    EXPECT_TRUE(server.message.contains("font-weight:700"));
    EXPECT_TRUE(server.message.contains("Greetings"));
    EXPECT_TRUE(textAppears(screen().rect(), QStringLiteral("Status : Send Complete")));
    // What was sent is closed without a question.
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(session.dialogsAreClosed());
    EXPECT_EQ(session.close(), 0);
}
