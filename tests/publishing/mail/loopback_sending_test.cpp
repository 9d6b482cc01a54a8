#include "publishing/mail/loopback_mail_server.h"
#include "publishing/mail/running_mail_server.h"
#include "sending_fixture.h"

#include <QCoreApplication>
#include <QTimer>

namespace {

using mail::MailSecurity;
using test::LoopbackMailServer;

const QString kNoReply = QStringLiteral("SMTP service error, timed out while waiting for response");
const QString kComplete = QStringLiteral("Status : Send Complete");

const QByteArrayList kPlainStages{"connected", "HELO", "MAIL", "RCPT", "DATA", "message", "QUIT"};
const QByteArrayList kSecureStages{"connected", "EHLO", "AUTH",    "MAIL",
                                   "RCPT",      "DATA", "message", "QUIT"};

constexpr double kLongSteps = 30; // seconds each time somebody looks

// A client and a server that meet on real sockets.
class LoopbackSending : public SendingTest {
protected:
    LoopbackSending()
    {
        client->settings.MailServerName = QStringLiteral("127.0.0.1");
        client->settings.MailServerPort = qint16(server.port());
    }

    // At the begin of a stage, of each connection: the toolkit tries again after one that broke
    // down before it had been told of it.
    void at(const QByteArray& stage, const std::function<void()>& action)
    {
        server.onCommand = [stage, action](const QByteArray& command) {
            if (command.startsWith(stage)) {
                action();
            }
        };
    }
    void secure(MailSecurity security)
    {
        client->settings.security = security;
        client->settings.user = QStringLiteral("me");
        client->password = QStringLiteral("secret");
        server.encrypt(security == MailSecurity::Tls ? LoopbackMailServer::Encryption::AtOnce
                                                     : LoopbackMailServer::Encryption::WhenAsked,
                       post.certificate());
    }
    void renewClient(const mail::MailSettings& settings)
    {
        client = std::make_unique<mail::SmtpClient>(status);
        client->settings = settings;
        client->password = QStringLiteral("secret");
    }

    support::TempTree tree;
    test::MailPost post{tree};
    LoopbackMailServer server;
};

// Says the reply byte by byte, only equal ones in a row together, and then the whole of it. The
// client has to have read each before the next comes.
class Dripping : public QObject {
public:
    Dripping(LoopbackMailServer& server, const mail::SmtpClient& client, const QByteArray& reply)
        : m_server(server)
        , m_client(client)
        , m_reply(reply)
    {
        for (const char byte : reply) {
            if (m_drops.isEmpty() || !m_drops.back().endsWith(byte)) {
                m_drops.append(QByteArray());
            }
            m_drops.back().append(byte);
        }
        connect(&m_timer, &QTimer::timeout, this, &Dripping::goOn);
        m_server.say(m_drops.front());
        m_timer.start(1);
    }

private:
    void goOn()
    {
        if (m_client.Response() != m_drops.front()) {
            return;
        }
        m_drops.removeFirst();
        if (m_drops.isEmpty()) {
            m_timer.stop();
        }
        m_server.say(m_drops.isEmpty() ? m_reply : m_drops.front());
    }

    LoopbackMailServer& m_server;
    const mail::SmtpClient& m_client;
    QByteArray m_reply;
    QByteArrayList m_drops; // not read yet
    QTimer m_timer;
};

} // namespace

TEST_F(LoopbackSending, ThePlainClientTakesNoBytesTogetherAtAnyStage)
{
    for (const QByteArray& stage : kPlainStages) {
        SCOPED_TRACE(stage.toStdString());
        std::unique_ptr<Dripping> dripping;
        server.commands.clear();
        server.onReply = [&](const QByteArray& command, const QByteArray& reply) {
            if (command.startsWith(stage)) {
                dripping = std::make_unique<Dripping>(server, *client, reply);
            } else {
                server.say(reply);
            }
        };
        send();
        EXPECT_NE(dripping, nullptr);
        EXPECT_EQ(server.commands.size(), 5);
        EXPECT_EQ(status.shown.back(), kComplete);
    }
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(LoopbackSending, ThePlainClientGoesOnWhereTheServerEnds)
{
    for (const bool resets : {false, true}) {
        for (qsizetype stage = 0; stage < kPlainStages.size(); ++stage) {
            SCOPED_TRACE(kPlainStages[stage].toStdString() + (resets ? " reset" : " closed"));
            dialogs.boxes.clear();
            status.shown.clear();
            clock.step = 0;
            at(kPlainStages[stage], [&] {
                resets ? server.breakDown() : server.hangUp();
                clock.step = kLongSteps;
            });
            send();
            EXPECT_EQ(dialogs.boxTexts(), QStringList(kPlainStages.size() - stage, kNoReply));
            EXPECT_EQ(status.shown.size(), 7);
            EXPECT_EQ(status.shown.back(), kComplete);
            EXPECT_FALSE(client->isSending());
        }
    }
}

TEST_F(LoopbackSending, ThePlainClientComesToItsEndWithoutAnyConnection)
{
    clock.step = kLongSteps;
    for (const int port : {0, -1, 1}) {
        client->settings.MailServerPort = qint16(port);
        send();
    }
    client->settings.MailServerName = QStringLiteral("no such host");
    client->settings.MailServerPort = qint16(server.port());
    send();
    EXPECT_EQ(dialogs.boxTexts(), QStringList(4 * kPlainStages.size(), kNoReply));
    EXPECT_EQ(server.connections, 0);
}

TEST_F(LoopbackSending, TheSecureClientTellsThatTheServerEnds)
{
    for (const bool resets : {false, true}) {
        for (const QByteArray& stage : kSecureStages) {
            SCOPED_TRACE(stage.toStdString() + (resets ? " reset" : " closed"));
            secure(MailSecurity::Tls);
            dialogs.boxes.clear();
            at(stage, [&] { resets ? server.breakDown() : server.hangUp(); });
            send();
            const bool wasTaken = stage == "QUIT";
            EXPECT_EQ(dialogs.boxes.size(), wasTaken ? 0U : 1U);
            EXPECT_EQ(status.shown.back() == kComplete, wasTaken);
        }
    }
}

TEST_F(LoopbackSending, TheSecureClientTakesRepliesByteByByte)
{
    server.onReply = [this](const QByteArray&, const QByteArray& reply) {
        for (const char byte : reply) {
            server.say(QByteArray(1, byte));
        }
    };
    for (const MailSecurity security : {MailSecurity::StartTls, MailSecurity::Tls}) {
        secure(security);
        send();
        EXPECT_EQ(dialogs.boxTexts(), QStringList());
        EXPECT_EQ(status.shown.back(), kComplete);
    }
    EXPECT_EQ(server.message.count("Subject: Hello\r\n"), 2);
}

TEST_F(LoopbackSending, NothingIsSentOrToldOnceASecureSendingIsLeft)
{
    const std::vector<std::function<void()>> ends{
        [this] { client->leave(); }, [this] { client.reset(); }, [] { platform::beginClosing(); }};
    for (const MailSecurity security : {MailSecurity::StartTls, MailSecurity::Tls}) {
        QByteArrayList stages = kSecureStages;
        if (security == MailSecurity::StartTls) {
            stages.append("STARTTLS");
        }
        for (const QByteArray& stage : stages) {
            for (const std::function<void()>& end : ends) {
                SCOPED_TRACE(stage.toStdString());
                secure(security);
                const mail::MailSettings settings = client->settings;
                qsizetype sent = -1;
                QStringList shown;
                at(stage, [&] {
                    end();
                    sent = server.commands.size();
                    shown = status.shown;
                });
                send();
                EXPECT_EQ(status.shown, shown);
                QCoreApplication::processEvents();
                EXPECT_EQ(server.commands.size(), sent);
                platform::resetClosing();
                renewClient(settings);
            }
        }
    }
    EXPECT_TRUE(dialogs.boxes.empty());
}
