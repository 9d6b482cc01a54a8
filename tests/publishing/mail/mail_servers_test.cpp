#include "sending_fixture.h"
#include "support/temp_tree.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QTcpServer>
#include <QTcpSocket>

namespace {

// The servers are packages of the system, whatever other Python stands in the way.
const QString kPython = QStringLiteral("/usr/bin/python3");
const QString kFolder = QStringLiteral(VISTARA_MAIL_TESTS "/");

void run(const QString& program, const QStringList& arguments, QByteArray* output = nullptr)
{
    QProcess process;
    process.start(program, arguments);
    ASSERT_TRUE(process.waitForFinished(60000)) << program.toStdString();
    ASSERT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    if (output != nullptr) {
        *output = process.readAllStandardOutput();
    }
}

// A mail server of another program, for as long as this lives.
class RunningServer {
public:
    explicit RunningServer(const QStringList& arguments)
    {
        m_process.start(kPython, arguments);
        while (!m_process.canReadLine() && m_process.waitForReadyRead(60000)) {
        }
        port = m_process.readLine().trimmed().toInt();
        EXPECT_GT(port, 0) << m_process.readAllStandardError().toStdString();
    }
    ~RunningServer()
    {
        m_process.closeWriteChannel();
        m_process.waitForFinished();
    }
    int port = 0;

private:
    QProcess m_process;
};

// Has everybody trust the authority of the test while it lives.
class TrustedAuthority {
public:
    explicit TrustedAuthority(const QString& file)
    {
        QSslConfiguration trusting = m_before;
        trusting.addCaCertificates(QSslCertificate::fromPath(file));
        QSslConfiguration::setDefaultConfiguration(trusting);
    }
    ~TrustedAuthority() { QSslConfiguration::setDefaultConfiguration(m_before); }
    TrustedAuthority(const TrustedAuthority&) = delete;
    TrustedAuthority& operator=(const TrustedAuthority&) = delete;

private:
    QSslConfiguration m_before = QSslConfiguration::defaultConfiguration();
};

class MailServersTest : public SendingTest {
protected:
    MailServersTest() { client->settings.MailServerName = QStringLiteral("127.0.0.1"); }

    void SetUp() override
    {
        run(kFolder + QStringLiteral("make_certificates.sh"), {tree.path("data")});
    }

    // Sends to a server of the mode with the certificate, as the settings have it.
    void sendTo(const char* mode, const char* certificate, const mail::MailDraft& draft)
    {
        QStringList arguments{kFolder + QStringLiteral("mail_server.py"), tree.path("run"),
                              QString::fromLatin1(mode)};
        if (certificate != nullptr) {
            arguments.append(tree.path("data/") + QString::fromLatin1(certificate));
        }
        const RunningServer server(arguments);
        send(server, draft);
    }
    // Ports of the settings end at 32767, those of the system don't.
    void send(const RunningServer& server, const mail::MailDraft& draft)
    {
        QTcpServer relay;
        ASSERT_TRUE(listenBelow(relay));
        QObject::connect(&relay, &QTcpServer::newConnection, &relay,
                         [&] { join(relay.nextPendingConnection(), server.port); });
        client->settings.MailServerPort = qint16(relay.serverPort());
        client->Send(draft);
    }
    static bool listenBelow(QTcpServer& server)
    {
        for (quint16 port = 20000; port < 32000; ++port) {
            if (server.listen(QHostAddress::LocalHost, port)) {
                return true;
            }
        }
        return false;
    }
    static void join(QTcpSocket* near, int port)
    {
        auto* const far = new QTcpSocket(near);
        far->connectToHost(QStringLiteral("127.0.0.1"), quint16(port));
        const auto pass = [](QTcpSocket* from, QTcpSocket* to) {
            QObject::connect(from, &QTcpSocket::readyRead, to,
                             [from, to] { to->write(from->readAll()); });
            QObject::connect(from, &QTcpSocket::disconnected, to,
                             [to] { to->disconnectFromHost(); });
        };
        pass(near, far);
        pass(far, near);
    }

    [[nodiscard]] QString received(const char* file)
    {
        return QString::fromStdString(tree.content(std::string("run/") + file));
    }
    QJsonObject parsed()
    {
        QByteArray output;
        run(kPython,
            {kFolder + QStringLiteral("mail_server.py"), QStringLiteral("--parse"),
             tree.path("run")},
            &output);
        return QJsonDocument::fromJson(output).object();
    }
    void secure(mail::MailSecurity security)
    {
        client->settings.security = security;
        client->settings.user = QStringLiteral("me");
        client->password = QStringLiteral("secret");
    }

    support::TempTree tree;
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
    EXPECT_EQ(received("envelope"), expected);
    EXPECT_EQ(parsed()[QStringLiteral("subject")].toString(), QStringLiteral("Hello"));
    EXPECT_EQ(parsed()[QStringLiteral("body")].toString().trimmed(), QStringLiteral("<p>Hi</p>"));
    ASSERT_TRUE(QFile::remove(tree.path("run/envelope")));

    const RunningServer other({kFolder + QStringLiteral("other_mail_server.py"), tree.path("run")});
    send(other, draft());
    EXPECT_EQ(received("envelope"), expected);
    EXPECT_EQ(parsed()[QStringLiteral("subject")].toString(), QStringLiteral("Hello"));
    EXPECT_EQ(status.shown.back(), QStringLiteral("Status : Send Complete"));
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(MailServersTest, EncryptedMailArrivesWithItsPicture)
{
    const TrustedAuthority trusted(tree.path("data/authority.pem"));
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
        EXPECT_EQ(received("envelope"),
                  QStringLiteral("me@example.org\nyou@example.net\nthem@example.net"));
        const QJsonObject mail = parsed();
        EXPECT_EQ(mail[QStringLiteral("subject")].toString(), draft.subject);
        EXPECT_EQ(mail[QStringLiteral("from")].toString(), draft.from);
        EXPECT_EQ(mail[QStringLiteral("to")].toString(), draft.to);
        // Lines of a mail end in CR LF, whatever they ended in before.
        EXPECT_EQ(mail[QStringLiteral("body")].toString().remove(u'\r'), draft.html);
        EXPECT_EQ(mail[QStringLiteral("name")].toString(), QStringLiteral("B\u00FCro 1.jpg"));
        EXPECT_EQ(mail[QStringLiteral("type")].toString(), QStringLiteral("image/jpeg"));
        EXPECT_EQ(mail[QStringLiteral("defects")].toString(), QString());
        EXPECT_TRUE(tree.content("run/attachment") == picture);
        ASSERT_TRUE(QFile::remove(tree.path("run/envelope")));
    }
}

TEST_F(MailServersTest, NoCertificateButAGoodOneIsTrusted)
{
    const TrustedAuthority trusted(tree.path("data/authority.pem"));
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
        EXPECT_FALSE(QFile::exists(tree.path("run/envelope")));
        EXPECT_EQ(status.shown.back(), QStringLiteral("Status: Mail message not sent"));
    }
}

TEST_F(MailServersTest, RefusalsComeWithTheServersWords)
{
    const TrustedAuthority trusted(tree.path("data/authority.pem"));
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
    EXPECT_FALSE(QFile::exists(tree.path("run/envelope")));
}

TEST_F(MailServersTest, NameAndPasswordAreToldOneByOne)
{
    const TrustedAuthority trusted(tree.path("data/authority.pem"));
    secure(mail::MailSecurity::Tls);
    client->password = QStringLiteral("wrong");
    sendTo("login", "good.pem", richDraft());
    ASSERT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_TRUE(dialogs.boxes[0].text.contains(QStringLiteral("refuses to log in the user me.")));
    EXPECT_FALSE(QFile::exists(tree.path("run/envelope")));
    client->password = QStringLiteral("secret");
    sendTo("login", "good.pem", richDraft());
    EXPECT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_TRUE(QFile::exists(tree.path("run/envelope")));
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
    EXPECT_FALSE(QFile::exists(tree.path("run/envelope")));
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
    QTcpServer silent;
    ASSERT_TRUE(listenBelow(silent));
    client->settings.MailServerPort = qint16(silent.serverPort());
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
