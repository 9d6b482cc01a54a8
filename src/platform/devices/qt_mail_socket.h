#pragma once

#include "platform/devices/mail_socket.h"

#include <QAbstractSocket>
#include <QPointer>

class QSslSocket;

namespace platform {

// A socket of the toolkit, a new one for each connection, so that nothing late of an old one
// arrives. The encryption library is loaded when the first connection asks for it.
class QtMailSocket : public MailSocket {
public:
    QtMailSocket() = default;
    ~QtMailSocket() override;
    QtMailSocket(const QtMailSocket&) = delete;
    QtMailSocket& operator=(const QtMailSocket&) = delete;

    void Close() override;
    void setLocalPort(int port) override { m_localPort = port; }
    void setProtocol(int protocol) override { m_protocol = protocol; }
    void setRemoteHost(const QString& host) override { m_host = host; }
    [[nodiscard]] QString RemoteHost() const override { return m_host; }
    void setRemotePort(int port) override { m_port = port; }
    void Connect() override;
    [[nodiscard]] QString LocalHostName() const override;
    [[nodiscard]] int State() const override;
    void SendData(const QByteArray& data) override;
    [[nodiscard]] QByteArray GetData() override;

    void setEncryption(MailEncryption encryption) override { m_encryption = encryption; }
    void secure() override;
    [[nodiscard]] qint64 unsent() const override;

private:
    void makeSocket();
    void listen();
    void tell(MailLoss why, const QString& words);
    void tellError();

    QPointer<QAbstractSocket> m_socket; // null before the first connection and after Close()
    QPointer<QSslSocket> m_secured;     // the same one, where it can encrypt
    QString m_host;
    MailEncryption m_encryption = MailEncryption::None;
    int m_localPort = 0;
    int m_protocol = 0;
    int m_port = 0;
    bool m_failed = false; // since Connect()
};

} // namespace platform

// The one door of the library that this class is in; the caller owns what it gets.
extern "C" platform::MailSocket* vistaraMailSocket();
