#include "publishing/mail/secure_sending.h"

#include "sending_fixture.h"
#include "support/temp_tree.h"

#include <QCoreApplication>
#include <functional>

namespace {

constexpr qsizetype kMostAhead = (256 + 64) * 1024; // bytes, one piece beyond what is ahead

// A sending over TLS without login, to a server that a test plays line by line.
class SecureSendingTest : public SendingTest {
protected:
    SecureSendingTest()
    {
        tree.add({"a.bin", std::string(1000000, 'y')});
        draftOfPicture.picture = tree.path("a.bin");
        message = makeMessage();
    }

    static mail::SessionFacts facts()
    {
        mail::SessionFacts facts;
        facts.server = QStringLiteral("mail.example.org");
        facts.security = mail::MailSecurity::Tls;
        facts.sender = QStringLiteral("me@example.org");
        facts.recipients = {QStringLiteral("you@example.net")};
        return facts;
    }
    std::unique_ptr<mail::SecureSending> begin()
    {
        auto sending = std::make_unique<mail::SecureSending>(socket, facts(), *message, status);
        QCoreApplication::processEvents();
        return sending;
    }
    // Up to the yes to DATA, with a network that takes nothing by itself from there on.
    std::unique_ptr<mail::SecureSending> beginMessage()
    {
        auto sending = begin();
        for (const char* const reply : {"220 hi\r\n", "250 x\r\n", "250 ok\r\n", "250 ok\r\n"}) {
            server.arrive(reply);
        }
        EXPECT_TRUE(server.sent.endsWith("DATA\r\n"));
        server.sent.clear();
        server.holds = true;
        server.arrive("354 go on\r\n");
        return sending;
    }
    std::unique_ptr<mail::MimeMessage> makeMessage() const
    {
        return std::make_unique<mail::MimeMessage>(draftOfPicture, facts().sender, mark);
    }
    QByteArray wholeMessage() const
    {
        const auto same = makeMessage();
        QByteArray whole;
        for (QByteArray piece = same->next(); !piece.isEmpty(); piece = same->next()) {
            whole += piece;
        }
        return whole;
    }
    // How often it looks at the clock until the server is left, ten seconds apart; 100 at the most.
    int looksUntilLeft(mail::SecureSending& sending, const std::function<void()>& news)
    {
        int looks = 0;
        for (; looks < 100 && !sending.isOver(); ++looks) {
            clock.seconds += 10;
            news();
            sending.checkTime();
        }
        return looks;
    }

    support::TempTree tree;
    support::FakeMailSockets server;
    std::shared_ptr<platform::MailSocket> socket = platform::makeMailSocket();
    mail::MailDraft draftOfPicture = draft();
    mail::MessageMark mark{QDateTime::currentDateTime(), "token"};
    std::unique_ptr<mail::MimeMessage> message;
};

} // namespace

TEST_F(SecureSendingTest, HandsTheMessageOverAsTheNetworkTakesIt)
{
    const auto sending = beginMessage();
    while (socket->unsent() > 0) {
        ASSERT_LE(socket->unsent(), kMostAhead);
        server.take(10000);
    }
    EXPECT_EQ(server.sent, wholeMessage() + ".\r\n");
    EXPECT_GT(status.shown.size(), 20);
    EXPECT_EQ(status.shown.back(), QStringLiteral("Status: Sending mail message (100 %)"));
    server.arrive("250 taken\r\n");
    EXPECT_FALSE(sending->isOver());
    server.arrive("221 bye\r\n");
    EXPECT_TRUE(sending->isOver());
    EXPECT_EQ(sending->failure(), QString());
}

TEST_F(SecureSendingTest, LeavesAServerWhoseReplyNeverEnds)
{
    for (const char* const piece : {"220-", "220-x\r\n"}) {
        const auto sending = begin();
        EXPECT_LE(looksUntilLeft(*sending, [&] { server.arrive(piece); }), 7) << piece;
        EXPECT_TRUE(sending->failure().endsWith(
            QStringLiteral("It didn't answer for 60 seconds.\nNothing was sent.")));
    }
}

TEST_F(SecureSendingTest, LeavesAServerThatTakesTheMessageByteByByte)
{
    const auto sending = beginMessage();
    EXPECT_LE(looksUntilLeft(*sending, [this] { server.take(1); }), 13);
    EXPECT_TRUE(sending->failure().endsWith(
        QStringLiteral("It didn't answer for 120 seconds.\nNothing was sent.")));
}

TEST_F(SecureSendingTest, WaitsForAServerThatTakesItsTime)
{
    const auto sending = beginMessage();
    EXPECT_EQ(looksUntilLeft(*sending, [this] { server.take(8000); }), 100);
    while (socket->unsent() > 0) {
        server.take(100000);
    }
    EXPECT_EQ(server.sent, wholeMessage() + ".\r\n");
}

TEST_F(SecureSendingTest, SendsNothingWhereTheSecurityIsUnknown)
{
    client->settings.security = mail::MailSecurity::Unknown;
    send();
    EXPECT_EQ(dialogs.boxTexts(),
              QStringList(QStringLiteral(
                  "The settings don't tell in a way that can be read how the connection to the "
                  "mail server is secured. Choose it in the mail setup.\nNothing was sent.")));
    EXPECT_TRUE(server.calls.isEmpty());
    EXPECT_EQ(status.shown.back(), QStringLiteral("Status: Mail message not sent"));
}
