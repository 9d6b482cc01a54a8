#pragma once

#include <QPointer>
#include <QSslConfiguration>
#include <QSslSocket>
#include <QStringList>
#include <QTcpServer>
#include <functional>
#include <gtest/gtest.h>
#include <sys/socket.h>

namespace test {

// A server on the loopback that takes every mail, in the thread of the test. It lets everybody log
// in, and encrypts when it is told how.
class LoopbackMailServer : public QTcpServer {
public:
    enum class Encryption { Never, WhenAsked, AtOnce };

    LoopbackMailServer()
    {
        // The settings hold a port in 16 bits with a sign.
        for (quint16 port = 21000; port < 32000 && !isListening(); ++port) {
            listen(QHostAddress::LocalHost, port);
        }
        EXPECT_TRUE(isListening());
    }

    [[nodiscard]] int port() const { return serverPort(); }
    void encrypt(Encryption when, const QSslConfiguration& certificate)
    {
        m_encryption = when;
        m_certificate = certificate;
    }

    [[nodiscard]] bool isAlone() const
    {
        return m_peer == nullptr || m_peer->state() != QAbstractSocket::ConnectedState;
    }

    // Ends the connection, as a server that closes or that breaks down.
    void hangUp()
    {
        if (m_peer != nullptr) {
            m_peer->disconnectFromHost();
        }
    }
    void breakDown()
    {
        if (m_peer != nullptr) {
            const linger atOnce{1, 0};
            ::setsockopt(int(m_peer->socketDescriptor()), SOL_SOCKET, SO_LINGER, &atOnce,
                         sizeof atOnce);
            m_peer->abort();
        }
    }
    void say(const QByteArray& bytes)
    {
        if (!isAlone()) {
            m_peer->write(bytes);
            m_peer->flush();
        }
    }

    QList<QByteArray> commands;
    QByteArray message; // up to the line that ends it
    int connections = 0;
    // Before each command is answered; "connected" and "message" too.
    std::function<void(const QByteArray& command)> onCommand;
    // Answers in the place of this server, which would have said the reply. Null: says it.
    std::function<void(const QByteArray& command, const QByteArray& reply)> onReply;

protected:
    void incomingConnection(qintptr descriptor) override
    {
        ++connections;
        m_inMessage = false;
        m_peer = new QSslSocket(this);
        m_peer->setSocketDescriptor(descriptor);
        m_peer->setSslConfiguration(m_certificate);
        connect(m_peer, &QSslSocket::readyRead, this, &LoopbackMailServer::readLines);
        if (m_encryption == Encryption::AtOnce) {
            connect(m_peer, &QSslSocket::encrypted, this, &LoopbackMailServer::greet);
            m_peer->startServerEncryption();
        } else {
            greet();
        }
    }

private:
    void greet() { meet("connected", "220 here"); }

    void readLines()
    {
        while (m_peer != nullptr && m_peer->canReadLine()) {
            const QByteArray line = m_peer->readLine();
            m_inMessage ? takeText(line) : take(line.trimmed());
        }
    }

    void take(const QByteArray& command)
    {
        commands.append(command);
        m_inMessage = command == "DATA";
        meet(command, replyTo(command));
        if (command == "STARTTLS" && !isAlone()) {
            m_peer->startServerEncryption();
        }
    }

    [[nodiscard]] QByteArray replyTo(const QByteArray& command) const
    {
        if (command.startsWith("EHLO")) {
            const bool asks = m_encryption == Encryption::WhenAsked && !m_peer->isEncrypted();
            return asks ? "250-here\r\n250 STARTTLS" : "250-here\r\n250 AUTH PLAIN";
        }
        return command == "DATA"            ? "354 go on"
               : command == "QUIT"          ? "221 bye"
               : command == "STARTTLS"      ? "220 go"
               : command.startsWith("AUTH") ? "235 in"
                                            : "250 ok";
    }

    void takeText(const QByteArray& line)
    {
        if (line == ".\r\n") {
            m_inMessage = false;
            meet("message", "250 taken");
        } else {
            message.append(line);
        }
    }

    void meet(const QByteArray& command, const QByteArray& reply)
    {
        if (onCommand) {
            onCommand(command);
        }
        if (onReply) {
            onReply(command, reply + "\r\n");
        } else {
            say(reply + "\r\n");
        }
    }

    QPointer<QSslSocket> m_peer;
    QSslConfiguration m_certificate;
    Encryption m_encryption = Encryption::Never;
    bool m_inMessage = false;
};

} // namespace test
