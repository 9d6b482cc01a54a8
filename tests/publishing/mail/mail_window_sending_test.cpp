#include "publishing/mail/loopback_mail_server.h"
#include "publishing/mail/mail_fixture.h"
#include "publishing/mail/running_mail_server.h"

#include <QCheckBox>
#include <QPointer>

using test::LoopbackMailServer;
using test::MailTest;

namespace {

const QString kPicture = QStringLiteral("pics/Gr\u00FC\u00DFe 1.jpg");

// The window with a picture in hand, a user, and the security of STARTTLS or TLS.
class MailWindowSending : public MailTest {
protected:
    MailWindowSending()
    {
        for (unsigned i = 0; i < 200000; ++i) {
            bytes.push_back(char(i * 7919 >> 5));
        }
        tree.add({kPicture.toStdString(), bytes});
        form.xiala = tree.path(kPicture.toStdString());
        config.values["MailUser"] = "me";
    }

    void sendTo(int port, bool atOnce)
    {
        config.values["Servername"] = "127.0.0.1";
        config.values["Serverport"] = QString::number(port);
        config.values["MailSecurity"] = atOnce ? "2" : "1";
        dialogs.passwordAnswers = {QStringLiteral("secret")};
        openComposer();
        fill("to@example.com", "from@example.org", "The l\u00E4ke", "Hello\n.\nthere");
        tool(0).click();
    }

    std::string bytes;
    test::MailPost post{tree};
};

} // namespace

TEST_F(MailWindowSending, APictureArrivesByteForByteFromWhoeverKnowsThePassword)
{
    for (const bool atOnce : {false, true}) {
        const test::RunningMailServer server(post.server(atOnce ? "tls" : "starttls", "good.pem"));
        sendTo(server.port(), atOnce);
        EXPECT_EQ(status(), QStringLiteral("Status : Send Complete"));
        EXPECT_EQ(dialogs.boxTexts(), QStringList());
        EXPECT_EQ(dialogs.passwordRequests.size(), atOnce ? 2U : 1U);
        EXPECT_EQ(post.envelope(), QStringLiteral("me@example.com\nto@example.com"));
        const QJsonObject message = post.message();
        EXPECT_EQ(message[QStringLiteral("subject")].toString(), QStringLiteral("The l\u00E4ke"));
        EXPECT_EQ(message[QStringLiteral("from")].toString(), QStringLiteral("from@example.org"));
        EXPECT_TRUE(message[QStringLiteral("body")].toString().contains(QStringLiteral("there")));
        EXPECT_EQ(message[QStringLiteral("name")].toString(), kPicture.mid(5));
        EXPECT_EQ(message[QStringLiteral("type")].toString(), QStringLiteral("image/jpeg"));
        EXPECT_EQ(message[QStringLiteral("defects")].toString(), QString());
        EXPECT_TRUE(post.attachment() == bytes);
        post.empty();
        // What was sent is closed without a question.
        composer()->close();
        EXPECT_EQ(composer(), nullptr);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

TEST_F(MailWindowSending, NothingArrivesWithoutAPassword)
{
    LoopbackMailServer server;
    server.encrypt(LoopbackMailServer::Encryption::AtOnce, post.certificate());
    config.values["Servername"] = "127.0.0.1";
    config.values["Serverport"] = QString::number(server.port());
    config.values["MailSecurity"] = "2";
    dialogs.passwordAnswers = {std::nullopt};
    openComposer();
    fill("to@example.com", "from@example.org", "The lake", "Hello");
    tool(0).click();
    EXPECT_EQ(server.connections, 0);
    EXPECT_TRUE(tool(0).isEnabled());
}

TEST_F(MailWindowSending, MayCloseAtAnyStageOfASecureSending)
{
    for (const char* stage :
         {"connected", "EHLO", "STARTTLS", "AUTH", "MAIL", "RCPT", "DATA", "message", "QUIT"}) {
        SCOPED_TRACE(stage);
        LoopbackMailServer server;
        server.encrypt(LoopbackMailServer::Encryption::WhenAsked, post.certificate());
        QPointer<QWidget> window;
        server.onCommand = [&](const QByteArray& command) {
            if (command.startsWith(stage)) {
                window = composer();
                window->close();
            }
        };
        dialogs.yesNoAnswers = {true};
        sendTo(server.port(), false);
        EXPECT_EQ(composer(), nullptr);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(window, nullptr);
        dialogs.yesNoAnswers.clear();
    }
    for (const support::FakeDialogs::Box& box : dialogs.boxes) {
        EXPECT_TRUE(box.text.contains("Throw it away")) << box.text.toStdString();
    }
}
