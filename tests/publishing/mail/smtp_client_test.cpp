#include "core/constants.h"
#include "sending_fixture.h"

#include <QSignalSpy>

namespace {

const QByteArray kMessage = "From: me@example.org\r\n"
                            "To: you@example.net\r\n"
                            "Subject: Hello\r\n"
                            "MIME-Version: 1.0\r\n"
                            "Content-Type: text/html; charset=utf-8\r\n"
                            "Content-Transfer-Encoding: 8bit\r\n"
                            "\r\n"
                            "<p>Hi</p>\r\n"
                            ".\r\n";
const QByteArray kDialogue = "HELO desk\r\n"
                             "MAIL FROM: me@example.org\r\n"
                             "RCPT TO: you@example.net\r\n"
                             "DATA\r\n" +
                             kMessage + "QUIT\r\n";
const QStringList kStatuses{QStringLiteral("(busy)"),
                            QStringLiteral("Status: Connecting to mail.example.org"),
                            QStringLiteral("Status: Sending mail message"),
                            QStringLiteral("Status: Mail message sent"),
                            QStringLiteral("Status: Closing connection."),
                            QStringLiteral("(idle)"),
                            QStringLiteral("Status : Send Complete")};

const QString kNoReply = QStringLiteral("SMTP service error, timed out while waiting for response");

QByteArray rightReply(const QByteArray& sent)
{
    return sent.isNull()             ? "220 hello\r\n"
           : sent.startsWith("DATA") ? "354 go on\r\n"
           : sent.startsWith("QUIT") ? "221 bye\r\n"
                                     : "250 fine\r\n";
}

// The stages of a dialogue, by what the client has sent before each of the seven waits.
const QByteArrayList kStages{QByteArray(), "HELO", "MAIL", "RCPT", "DATA", "From: ", "QUIT"};

bool isStage(const QByteArray& sent, const QByteArray& stage)
{
    return stage.isNull() ? sent.isNull() : sent.startsWith(stage);
}

class SmtpClientTest : public SendingTest {
protected:
    SmtpClientTest()
    {
        server.answers = [](const QByteArray& sent) { return QByteArrayList{rightReply(sent)}; };
    }
    ~SmtpClientTest() override { client.reset(); } // ahead of the server

    // Answers as it should, but at one stage otherwise.
    void answerAt(const QByteArray& stage, const QByteArrayList& pieces)
    {
        server.answers = [=](const QByteArray& sent) {
            return isStage(sent, stage) ? pieces : QByteArrayList{rightReply(sent)};
        };
    }

    support::FakeMailSockets server;
};

} // namespace

TEST_F(SmtpClientTest, SpeaksTheDialogueToTheByteAndShowsItsStatuses)
{
    send();
    EXPECT_EQ(server.sent.toStdString(), kDialogue.toStdString());
    EXPECT_EQ(status.shown, kStatuses);
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(SmtpClientTest, UsesTheSocketStepByStep)
{
    send();
    const QStringList calls{QStringLiteral("Close"),
                            QStringLiteral("LocalPort 0"),
                            QStringLiteral("Protocol 0"),
                            QStringLiteral("RemoteHost mail.example.org"),
                            QStringLiteral("RemotePort 2525"),
                            QStringLiteral("Connect"),
                            QStringLiteral("Close")};
    EXPECT_EQ(server.calls, calls);
}

TEST_F(SmtpClientTest, SendsTheMessageAtOnce)
{
    QByteArrayList pieces;
    server.onSent = [&](const QByteArray& piece) { pieces.append(piece); };
    send();
    EXPECT_TRUE(pieces.contains(kMessage));
}

TEST_F(SmtpClientTest, ComesToItsEndWithoutAnyServer)
{
    server.connects = false;
    clock.step = 60;
    send();
    EXPECT_EQ(dialogs.boxTexts(), QStringList(7, kNoReply));
    for (const support::FakeDialogs::Box& box : dialogs.boxes) {
        EXPECT_EQ(box.title, core::kProgramName);
        EXPECT_EQ(box.icon, platform::BoxIcon::Information);
    }
    EXPECT_TRUE(server.sent.isEmpty());
    EXPECT_EQ(status.shown, kStatuses);
}

TEST_F(SmtpClientTest, WaitsFiftySecondsAndNoMore)
{
    server.connects = false;
    clock.step = 50; // each wait looks at 0, 50 and 100 seconds of its own
    QList<double> times;
    dialogs.whileOpen = [&] { times.append(clock.seconds); };
    send();
    ASSERT_EQ(times.size(), 7);
    EXPECT_EQ(times[0], 1000 + 50 + 2 * 50);
    EXPECT_EQ(times[6], times[0] + 6 * 150);
}

TEST_F(SmtpClientTest, AWaitAcrossMidnightHasNoLimitBeforeTheNext)
{
    answerAt(QByteArray(), {});
    clock.seconds = 86399;
    QTimer::singleShot(0, &server, [&] { clock.seconds = 51; });
    QTimer::singleShot(60, &server, [&] { server.arrive("220 late"); });
    send();
    EXPECT_TRUE(dialogs.boxes.empty());
    EXPECT_EQ(server.sent, kDialogue);
}

TEST_F(SmtpClientTest, AWrongCodeHasItWaitForTheRightOneWithoutALimit)
{
    for (const QByteArray& stage : kStages) {
        SCOPED_TRACE(stage.toStdString());
        answerAt(stage, {"550 no\r\n"});
        server.sent.clear();
        bool lives = false;
        clock.step = 20;
        QTimer::singleShot(200, &server, [&] {
            lives = true;
            server.arrive(rightReply(stage));
        });
        send();
        EXPECT_TRUE(lives);
        EXPECT_EQ(server.sent, kDialogue);
        EXPECT_TRUE(dialogs.boxes.empty());
    }
}

TEST_F(SmtpClientTest, NothingIsSentOrShownOnceTheProgramCloses)
{
    for (const QByteArray& reply : {QByteArray("550 no\r\n"), QByteArray()}) {
        for (const QByteArray& stage : kStages) {
            SCOPED_TRACE(stage.toStdString());
            answerAt(stage, {reply});
            qsizetype sent = 0;
            qsizetype shown = 0;
            QTimer::singleShot(50, &server, [&] {
                sent = server.sent.size();
                shown = status.shown.size();
                platform::beginClosing();
            });
            send();
            EXPECT_EQ(server.sent.size(), sent);
            EXPECT_EQ(status.shown.size(), shown);
            EXPECT_TRUE(dialogs.boxes.empty());
            platform::resetClosing();
        }
    }
}

TEST_F(SmtpClientTest, LeavingEndsItAtEachStage)
{
    for (const QByteArray& stage : kStages) {
        SCOPED_TRACE(stage.toStdString());
        answerAt(stage, {"550 no\r\n"});
        status.shown.clear();
        qsizetype shown = 0;
        QTimer::singleShot(50, &server, [&] {
            EXPECT_FALSE(client->Response().isEmpty());
            client->leave();
            shown = status.shown.size();
        });
        send();
        EXPECT_EQ(status.shown.size(), shown);
        EXPECT_EQ(server.state, platform::MailSocket::Closed);
        EXPECT_TRUE(client->Response().isEmpty());
        EXPECT_FALSE(client->isSending());
    }
}

TEST_F(SmtpClientTest, MayGoAtEachStage)
{
    for (const QByteArray& stage : kStages) {
        SCOPED_TRACE(stage.toStdString());
        const mail::MailSettings settings = client->settings;
        answerAt(stage, {"550 no\r\n"});
        QTimer::singleShot(50, &server, [&] { client.reset(); });
        send();
        EXPECT_EQ(client, nullptr);
        client = std::make_unique<mail::SmtpClient>(status);
        client->settings = settings;
    }
}

TEST_F(SmtpClientTest, MayGoWhileABoxIsShown)
{
    server.connects = false;
    clock.step = 60;
    dialogs.whileOpen = [&] { client.reset(); };
    send();
    EXPECT_EQ(dialogs.boxes.size(), 1U);
}

TEST_F(SmtpClientTest, MayBeLeftBeforeALargeTextIsPutTogether)
{
    mail::MailDraft large = draft();
    large.html = QString(8 << 20, u'x');
    for (const std::function<void()>& end :
         {std::function<void()>([this] { client->leave(); }),
          std::function<void()>([] { platform::beginClosing(); }),
          std::function<void()>([this] { client.reset(); })}) {
        QTimer::singleShot(0, &server, end);
        client->Send(large);
        EXPECT_TRUE(server.calls.isEmpty());
        EXPECT_TRUE(status.shown.isEmpty());
        platform::resetClosing();
    }
}

TEST_F(SmtpClientTest, TakesNoPiecesOfACodeTogether)
{
    answerAt(QByteArray(), {"22", "0 x\r\n"});
    QTimer::singleShot(100, &server, [&] {
        EXPECT_EQ(client->Response(), "0 x\r\n");
        EXPECT_TRUE(server.sent.isEmpty());
        server.arrive("220 again\r\n");
    });
    send();
    EXPECT_EQ(server.sent, kDialogue);
}

TEST_F(SmtpClientTest, ALaterPieceTakesThePlaceOfOneNotReadYet)
{
    answerAt("HELO", {});
    server.onSent = [&](const QByteArray& sent) {
        if (sent.startsWith("HELO")) {
            QTimer::singleShot(0, &server, [&] {
                server.arrive("250 fine\r\n");
                server.arrive("some more\r\n");
            });
        }
    };
    QTimer::singleShot(100, &server, [&] {
        EXPECT_EQ(server.sent, "HELO desk\r\n");
        server.arrive("250");
    });
    send();
    EXPECT_EQ(server.sent, kDialogue);
}

TEST_F(SmtpClientTest, AReplyThatComesBehindTheBoxServesTheNextWait)
{
    answerAt("HELO", {});
    server.onSent = [&](const QByteArray& sent) { clock.step = sent.startsWith("HELO") ? 60 : 0; };
    dialogs.whileOpen = [&] {
        clock.step = 0;
        server.arrive("250 late\r\n");
    };
    send();
    EXPECT_EQ(dialogs.boxTexts(), QStringList{kNoReply});
    EXPECT_EQ(server.sent, kDialogue);
}

TEST_F(SmtpClientTest, LongAndManyLinedRepliesPassByTheirFirstThreeCharacters)
{
    for (const QByteArray& stage : kStages) {
        const QByteArray code = rightReply(stage).left(3);
        answerAt(stage, {code + "-one\r\n" + code + "-" + QByteArray(1 << 20, 'x') + "\r\n" + code +
                         " end\r\n"});
        server.sent.clear();
        send();
        EXPECT_EQ(server.sent, kDialogue);
    }
}

TEST_F(SmtpClientTest, GoesThroughAllItsStepsWhereTheServerEndsTheConnection)
{
    for (const platform::MailLoss loss :
         {platform::MailLoss::PeerClosed, platform::MailLoss::Network}) {
        for (const QByteArray& stage : kStages) {
            SCOPED_TRACE(stage.toStdString());
            answerAt(stage, {});
            server.sent.clear();
            status.shown.clear();
            dialogs.boxes.clear();
            clock.step = 30;
            QTimer::singleShot(0, &server, [&] { server.lose(loss); });
            send();
            EXPECT_TRUE(kDialogue.startsWith(server.sent));
            EXPECT_FALSE(dialogs.boxes.empty());
            EXPECT_EQ(status.shown, kStatuses);
            clock.step = 0;
        }
    }
}

TEST_F(SmtpClientTest, ReplaySendsWhileConnectedOnly)
{
    client->Replay("EARLY");
    send();
    for (const int state : {platform::MailSocket::Closed, platform::MailSocket::ResolvingHost,
                            platform::MailSocket::Connecting, platform::MailSocket::PeerClosing,
                            platform::MailSocket::Error}) {
        server.state = state;
        client->Replay("LATE");
    }
    EXPECT_EQ(server.sent, kDialogue);
    server.state = platform::MailSocket::Connected;
    client->Replay("NOW");
    EXPECT_EQ(server.sent, kDialogue + "NOW\r\n");
}

TEST_F(SmtpClientTest, ASecondSendDuringTheFirstDoesNothing)
{
    const QSignalSpy changes(client.get(), &mail::SmtpClient::sendingChanged);
    QTimer::singleShot(0, &server, [&] {
        EXPECT_TRUE(client->isSending());
        send();
    });
    send();
    EXPECT_EQ(server.sent, kDialogue);
    EXPECT_EQ(changes.count(), 2);
    EXPECT_FALSE(client->isSending());
}

TEST_F(SmtpClientTest, AddressesAddNoCommands)
{
    mail::MailDraft draft = SendingTest::draft();
    draft.to = QStringLiteral("you@example.net\r\nRCPT TO: them@example.net");
    client->settings.MailFromAddress = QStringLiteral("me@example.org\nRSET");
    client->Send(draft);
    EXPECT_TRUE(server.sent.contains("\r\nMAIL FROM: me@example.org RSET\r\n"
                                     "RCPT TO: you@example.net  RCPT TO: them@example.net\r\n"
                                     "DATA\r\n"));
}

TEST_F(SmtpClientTest, SendsNoPictureInThePlain)
{
    mail::MailDraft draft = SendingTest::draft();
    draft.picture = QStringLiteral("/nowhere/a.jpg");
    client->Send(draft);
    EXPECT_EQ(server.sent, kDialogue);
}
