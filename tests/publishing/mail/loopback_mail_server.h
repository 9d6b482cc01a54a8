#pragma once

#include <QPointer>
#include <QStringList>
#include <QTcpServer>
#include <QTcpSocket>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

namespace test {

// A server on the loopback that takes every mail, in the thread of the test.
class LoopbackMailServer : public QObject {
public:
    LoopbackMailServer()
    {
        // The settings hold a port in 16 bits with a sign.
        for (quint16 port = 21000; port < 32000 && !m_server.isListening(); ++port) {
            m_server.listen(QHostAddress::LocalHost, port);
        }
        EXPECT_TRUE(m_server.isListening());
        connect(&m_server, &QTcpServer::newConnection, this, &LoopbackMailServer::greet);
    }

    [[nodiscard]] int port() const { return m_server.serverPort(); }

    [[nodiscard]] bool isAlone() const
    {
        return m_peer == nullptr || m_peer->state() != QAbstractSocket::ConnectedState;
    }

    QList<QByteArray> commands;
    QByteArray message; // up to the line that ends it
    int connections = 0;
    // Before each command is answered; "connected" and "message" too.
    std::function<void(const QByteArray& command)> onCommand;

private:
    void greet()
    {
        ++connections;
        m_peer = m_server.nextPendingConnection();
        connect(m_peer, &QTcpSocket::readyRead, this, &LoopbackMailServer::readLines);
        tell("connected");
        answer("220 here");
    }

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
        tell(command);
        m_inMessage = command == "DATA";
        answer(m_inMessage ? "354 go on" : command == "QUIT" ? "221 bye" : "250 ok");
    }

    void takeText(const QByteArray& line)
    {
        if (line == ".\r\n") {
            m_inMessage = false;
            tell("message");
            answer("250 taken");
        } else {
            message.append(line);
        }
    }

    void tell(const QByteArray& command) const
    {
        if (onCommand) {
            onCommand(command);
        }
    }

    void answer(const QByteArray& text)
    {
        if (m_peer != nullptr) {
            m_peer->write(text + "\r\n");
        }
    }

    QTcpServer m_server;
    QPointer<QTcpSocket> m_peer;
    bool m_inMessage = false;
};

} // namespace test
