#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

namespace platform {

// Why a connection is gone or never came to be.
enum class MailLoss {
    PeerClosed,   // the server ended it
    NotFound,     // there is no host of that name
    Network,      // refused, reset, unreachable
    NotTrusted,   // the certificate has expired, is another host's, or nobody trusted signed it
    NotEncrypted, // the handshake failed for another reason
};

enum class MailEncryption {
    None,
    Later,  // when secure() asks for it
    AtOnce, // from the first byte
};

// Hears of a socket's news, mostly from the event loop. It may call any operation of the socket
// then, and may delete it.
class MailSocketListener {
public:
    virtual ~MailSocketListener() = default;

    virtual void DataArrival() = 0;                          // GetData() has something
    virtual void secured() {}                                // everything from here on is encrypted
    virtual void roomToSend() {}                             // some of unsent() has gone out
    virtual void lost(MailLoss, const QString& /*words*/) {} // words of the system, for people
};

// One connection to a mail server, with the operations of the classic socket control. Nothing
// waits.
class MailSocket {
public:
    enum States {
        Closed = 0,
        ResolvingHost = 4,
        Connecting = 6,
        Connected = 7,
        PeerClosing = 8,
        Error = 9,
    };

    virtual ~MailSocket() = default;

    // Gets the news from now on; null: nobody. Never owned.
    void setListener(MailSocketListener* listener) { m_listener = listener; }

    virtual void Close() = 0;                   // at once; what the system takes no more is lost
    virtual void setLocalPort(int port) = 0;    // 0: any
    virtual void setProtocol(int protocol) = 0; // 0: TCP, the only one
    virtual void setRemoteHost(const QString& host) = 0;
    [[nodiscard]] virtual QString RemoteHost() const = 0;
    virtual void setRemotePort(int port) = 0;
    virtual void Connect() = 0;
    [[nodiscard]] virtual QString LocalHostName() const = 0;
    [[nodiscard]] virtual int State() const = 0;
    virtual void SendData(const QByteArray& data) = 0; // all of it, now or later
    // What has arrived since the last call.
    [[nodiscard]] virtual QByteArray GetData() = 0;

    // How the next Connect() begins. The certificate is checked in full, against the name of
    // RemoteHost too, and a connection that isn't trusted is lost.
    virtual void setEncryption(MailEncryption encryption) = 0;
    virtual void secure() = 0; // from here on
    // Bytes that SendData() took and the system didn't yet.
    [[nodiscard]] virtual qint64 unsent() const = 0;

protected:
    MailSocketListener* m_listener = nullptr;
};

class MailSockets {
public:
    virtual ~MailSockets() = default;
    [[nodiscard]] virtual std::unique_ptr<MailSocket> make() = 0;
};

// A socket of the system, or of what a test put in its place.
[[nodiscard]] std::unique_ptr<MailSocket> makeMailSocket();

class ScopedMailSockets {
public:
    explicit ScopedMailSockets(MailSockets& replacement);
    ~ScopedMailSockets();
    ScopedMailSockets(const ScopedMailSockets&) = delete;
    ScopedMailSockets& operator=(const ScopedMailSockets&) = delete;

private:
    MailSockets* m_previous;
};

} // namespace platform
