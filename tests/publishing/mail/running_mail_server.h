#pragma once

#include "support/temp_tree.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QTcpServer>
#include <QTcpSocket>
#include <gtest/gtest.h>

namespace test {

// The servers are packages of the system, whatever other Python stands in the way.
inline const QString kPython = QStringLiteral("/usr/bin/python3");
inline const QString kMailTests = QStringLiteral(VISTARA_MAIL_TESTS "/");

inline void runToItsEnd(const QString& program, const QStringList& arguments,
                        QByteArray* output = nullptr)
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
class RunningMailServer {
public:
    explicit RunningMailServer(const QStringList& arguments)
    {
        m_process.start(kPython, arguments);
        while (!m_process.canReadLine() && m_process.waitForReadyRead(60000)) {
        }
        m_port = m_process.readLine().trimmed().toInt();
        EXPECT_GT(m_port, 0) << m_process.readAllStandardError().toStdString();
        QObject::connect(&m_relay, &QTcpServer::newConnection, &m_relay,
                         [this] { join(m_relay.nextPendingConnection()); });
        for (quint16 port = 20000; port < 32000 && !m_relay.isListening(); ++port) {
            m_relay.listen(QHostAddress::LocalHost, port);
        }
        EXPECT_TRUE(m_relay.isListening());
    }
    ~RunningMailServer()
    {
        m_process.closeWriteChannel();
        m_process.waitForFinished();
    }
    RunningMailServer(const RunningMailServer&) = delete;
    RunningMailServer& operator=(const RunningMailServer&) = delete;

    // Ports of the settings end at 32767, those of the system don't.
    [[nodiscard]] int port() const { return m_relay.serverPort(); }

private:
    void join(QTcpSocket* near)
    {
        auto* const far = new QTcpSocket(near);
        far->connectToHost(QStringLiteral("127.0.0.1"), quint16(m_port));
        pass(near, far);
        pass(far, near);
    }
    static void pass(QTcpSocket* from, QTcpSocket* to)
    {
        QObject::connect(from, &QTcpSocket::readyRead, to,
                         [from, to] { to->write(from->readAll()); });
        QObject::connect(from, &QTcpSocket::disconnected, to, [to] { to->disconnectFromHost(); });
    }

    QProcess m_process;
    QTcpServer m_relay;
    int m_port = 0;
};

// An authority of the test's own, which everybody trusts while this lives, and what the servers
// that it has certified have received, in the folders of a tree.
class MailPost {
public:
    explicit MailPost(const support::TempTree& tree)
        : m_tree(tree)
    {
        runToItsEnd(kMailTests + QStringLiteral("make_certificates.sh"), {m_tree.path("data")});
        QSslConfiguration trusting = m_before;
        trusting.addCaCertificates(QSslCertificate::fromPath(m_tree.path("data/authority.pem")));
        QSslConfiguration::setDefaultConfiguration(trusting);
    }
    ~MailPost() { QSslConfiguration::setDefaultConfiguration(m_before); }
    MailPost(const MailPost&) = delete;
    MailPost& operator=(const MailPost&) = delete;

    // What mail_server.py is called with; without a certificate for plain ones.
    [[nodiscard]] QStringList server(const char* mode, const char* certificate)
    {
        QStringList arguments{kMailTests + QStringLiteral("mail_server.py"), m_tree.path("run"),
                              QString::fromLatin1(mode)};
        if (certificate != nullptr) {
            arguments.append(m_tree.path("data/") + QString::fromLatin1(certificate));
        }
        return arguments;
    }
    [[nodiscard]] QStringList otherServer()
    {
        return {kMailTests + QStringLiteral("other_mail_server.py"), m_tree.path("run")};
    }

    // How a server of the test's own shows who it is.
    [[nodiscard]] QSslConfiguration certificate()
    {
        QFile key(m_tree.path("data/good.key"));
        EXPECT_TRUE(key.open(QIODevice::ReadOnly));
        QSslConfiguration configuration;
        configuration.setLocalCertificate(
            QSslCertificate::fromPath(m_tree.path("data/good.pem")).value(0));
        configuration.setPrivateKey(QSslKey(&key, QSsl::Ec));
        return configuration;
    }

    [[nodiscard]] QString envelope()
    {
        return QString::fromStdString(m_tree.content("run/envelope"));
    }
    [[nodiscard]] bool isEmpty() { return !QFile::exists(m_tree.path("run/envelope")); }
    void empty() { ASSERT_TRUE(QFile::remove(m_tree.path("run/envelope"))); }
    // The message as Python understands it; that has the attachment written out.
    [[nodiscard]] QJsonObject message()
    {
        QByteArray output;
        runToItsEnd(kPython,
                    {kMailTests + QStringLiteral("mail_server.py"), QStringLiteral("--parse"),
                     m_tree.path("run")},
                    &output);
        return QJsonDocument::fromJson(output).object();
    }
    [[nodiscard]] std::string attachment() { return m_tree.content("run/attachment"); }

private:
    const support::TempTree& m_tree;
    QSslConfiguration m_before = QSslConfiguration::defaultConfiguration();
};

} // namespace test
