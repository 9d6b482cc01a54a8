#pragma once

#include "platform/devices/mail_socket.h"

#include <QByteArrayList>
#include <QObject>
#include <QStringList>
#include <QTimer>
#include <deque>
#include <functional>
#include <utility>

namespace support {

// A mail server for tests, at the other end of every socket that is made while it lives. It writes
// down what it is sent and what is done with the socket, and answers as it is told: late, in
// pieces, with more than was asked for, or not at all. Each piece arrives in a turn of the event
// loop of its own.
class FakeMailSockets : public QObject, public platform::MailSockets {
public:
    // What it answers to something sent, or to being connected (null): the pieces in which that
    // arrives. An empty piece passes a turn.
    std::function<QByteArrayList(const QByteArray& sent)> answers = [](const QByteArray&) {
        return QByteArrayList();
    };
    std::function<void(const QByteArray& sent)> onSent = [](const QByteArray&) {};
    bool connects = true;
    bool securesItself = true; // tells secured() after secure() or an encrypted begin
    bool holds = false;        // what it is sent waits for take()

    QStringList calls; // all but those that ask
    QByteArray sent;
    int state = platform::MailSocket::Closed;

    std::unique_ptr<platform::MailSocket> make() override
    {
        auto socket = std::make_unique<Socket>(*this);
        m_socket = socket.get();
        return socket;
    }

    // Arrives now, joined to nothing.
    void arrive(const QByteArray& bytes)
    {
        m_arrived = bytes;
        tell([](platform::MailSocketListener& listener) { listener.DataArrival(); });
    }
    // The connection ends now.
    void lose(platform::MailLoss why, const QString& words = {})
    {
        state = why == platform::MailLoss::PeerClosed ? platform::MailSocket::PeerClosing
                                                      : platform::MailSocket::Error;
        m_pieces.clear();
        tell([&](platform::MailSocketListener& listener) { listener.lost(why, words); });
    }

    // The system takes so many bytes more of what waits.
    void take(qsizetype bytes)
    {
        const QByteArray taken = m_held.left(bytes);
        m_held.remove(0, taken.size());
        pass(taken);
        tell([](platform::MailSocketListener& listener) { listener.roomToSend(); });
    }

private:
    class Socket : public platform::MailSocket {
    public:
        explicit Socket(FakeMailSockets& server)
            : m_server(server)
        {
        }
        ~Socket() override { m_server.m_socket = nullptr; }

        [[nodiscard]] platform::MailSocketListener* listener() const { return m_listener; }

        void Close() override
        {
            note(QStringLiteral("Close"));
            m_server.state = Closed;
            m_server.m_pieces.clear();
            m_server.m_held.clear();
        }
        void setLocalPort(int port) override { note(QStringLiteral("LocalPort %1").arg(port)); }
        void setProtocol(int number) override { note(QStringLiteral("Protocol %1").arg(number)); }
        void setRemoteHost(const QString& host) override
        {
            note(QStringLiteral("RemoteHost ") + host);
            m_host = host;
        }
        [[nodiscard]] QString RemoteHost() const override { return m_host; }
        void setRemotePort(int port) override { note(QStringLiteral("RemotePort %1").arg(port)); }
        void Connect() override
        {
            note(QStringLiteral("Connect"));
            if (m_server.connects) {
                m_server.state = Connected;
                m_server.answer({});
            }
            if (m_encryption == platform::MailEncryption::AtOnce) {
                m_server.beSecured();
            }
        }
        [[nodiscard]] QString LocalHostName() const override { return QStringLiteral("desk"); }
        [[nodiscard]] int State() const override { return m_server.state; }
        void SendData(const QByteArray& data) override
        {
            if (m_server.holds) {
                m_server.m_held += data;
            } else {
                m_server.pass(data);
            }
        }
        [[nodiscard]] QByteArray GetData() override
        {
            return std::exchange(m_server.m_arrived, {});
        }
        void setEncryption(platform::MailEncryption encryption) override
        {
            m_encryption = encryption;
        }
        void secure() override
        {
            note(QStringLiteral("secure"));
            m_server.beSecured();
        }
        [[nodiscard]] qint64 unsent() const override { return m_server.m_held.size(); }

    private:
        void note(const QString& call) { m_server.calls.append(call); }

        FakeMailSockets& m_server;
        QString m_host;
        platform::MailEncryption m_encryption = platform::MailEncryption::None;
    };

    void pass(const QByteArray& data)
    {
        sent += data;
        answer(data);
        onSent(data);
    }
    void answer(const QByteArray& data)
    {
        for (const QByteArray& piece : answers(data)) {
            m_pieces.push_back(piece);
        }
        QTimer::singleShot(0, this, [this] { deliver(); });
    }
    void deliver()
    {
        if (m_pieces.empty()) {
            return;
        }
        const QByteArray piece = m_pieces.front();
        m_pieces.pop_front();
        QTimer::singleShot(0, this, [this] { deliver(); });
        if (!piece.isEmpty()) {
            arrive(piece);
        }
    }
    void beSecured()
    {
        if (securesItself) {
            QTimer::singleShot(0, this, [this] {
                tell([](platform::MailSocketListener& listener) { listener.secured(); });
            });
        }
    }
    void tell(const std::function<void(platform::MailSocketListener&)>& news)
    {
        if (m_socket != nullptr && m_socket->listener() != nullptr) {
            news(*m_socket->listener());
        }
    }

    Socket* m_socket = nullptr; // the client's
    std::deque<QByteArray> m_pieces;
    QByteArray m_arrived;
    QByteArray m_held; // taken by the socket, and not yet by the system
    platform::ScopedMailSockets m_inPlace{*this};
};

} // namespace support
