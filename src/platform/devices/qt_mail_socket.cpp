#include "platform/devices/qt_mail_socket.h"

#include <QNetworkProxy>
#include <QSslConfiguration>
#include <QSslSocket>
#include <QSysInfo>
#include <QTcpSocket>
#include <limits>

namespace platform {

namespace {

MailLoss lossOf(QAbstractSocket::SocketError error)
{
    switch (error) {
    case QAbstractSocket::RemoteHostClosedError:
        return MailLoss::PeerClosed;
    case QAbstractSocket::HostNotFoundError:
        return MailLoss::NotFound;
    case QAbstractSocket::SslHandshakeFailedError:
    case QAbstractSocket::SslInternalError:
    case QAbstractSocket::SslInvalidUserDataError:
        return MailLoss::NotEncrypted;
    default:
        return MailLoss::Network;
    }
}

// What is wrong with the certificate, each thing once.
QString textOf(const QList<QSslError>& errors)
{
    QStringList texts;
    for (const QSslError& error : errors) {
        texts.append(error.errorString());
    }
    texts.removeDuplicates();
    return texts.join(QLatin1Char(' '));
}

QSslSocket* makeSecured(const QString& host)
{
    auto* const socket = new QSslSocket;
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setProtocol(QSsl::TlsV1_2OrLater);
    configuration.setPeerVerifyMode(QSslSocket::VerifyPeer);
    socket->setSslConfiguration(configuration);
    socket->setPeerVerifyName(host);
    return socket;
}

bool isPort(int port)
{
    return port > 0 && port <= std::numeric_limits<quint16>::max();
}

} // namespace

QtMailSocket::~QtMailSocket()
{
    m_listener = nullptr;
    Close();
}

// The socket may be the one whose signal is being told of, so it goes later.
void QtMailSocket::Close()
{
    m_failed = false;
    if (QAbstractSocket* const socket = m_socket) {
        m_socket = nullptr;
        socket->disconnect();
        socket->flush();
        socket->abort();
        socket->deleteLater();
    }
}

void QtMailSocket::Connect()
{
    Close();
    if (m_protocol != 0 || !isPort(m_port)) {
        m_failed = true;
        tell(MailLoss::Network, QStringLiteral("There is no such port."));
        return;
    }
    makeSocket();
    listen();
    if (m_localPort != 0) {
        m_socket->bind(quint16(m_localPort));
    }
    if (m_encryption == MailEncryption::AtOnce) {
        m_secured->connectToHostEncrypted(m_host, quint16(m_port));
    } else {
        m_socket->connectToHost(m_host, quint16(m_port));
    }
}

// A plain socket shares what it is given to send, where one that can encrypt copies it.
void QtMailSocket::makeSocket()
{
    if (m_encryption == MailEncryption::None) {
        m_socket = new QTcpSocket;
    } else {
        m_secured = makeSecured(m_host);
        m_socket = m_secured;
    }
    // A mail server is met straight, whatever web pages come through.
    m_socket->setProxy(QNetworkProxy::NoProxy);
}

void QtMailSocket::listen()
{
    const auto room = [this] {
        if (m_listener != nullptr) {
            m_listener->roomToSend();
        }
    };
    QObject::connect(m_socket, &QAbstractSocket::readyRead, m_socket, [this] {
        if (m_listener != nullptr) {
            m_listener->DataArrival();
        }
    });
    QObject::connect(m_socket, &QAbstractSocket::errorOccurred, m_socket, [this] { tellError(); });
    QObject::connect(m_socket, &QAbstractSocket::bytesWritten, m_socket, room);
    if (m_secured != nullptr) {
        QObject::connect(m_secured, &QSslSocket::encryptedBytesWritten, m_socket, room);
        QObject::connect(m_secured, &QSslSocket::encrypted, m_socket, [this] {
            if (m_listener != nullptr) {
                m_listener->secured();
            }
        });
    }
}

void QtMailSocket::tellError()
{
    const MailLoss why = lossOf(m_socket->error());
    m_failed = why != MailLoss::PeerClosed;
    const QString distrust =
        m_secured != nullptr ? textOf(m_secured->sslHandshakeErrors()) : QString();
    if (distrust.isEmpty()) {
        tell(why, m_socket->errorString());
    } else {
        tell(MailLoss::NotTrusted, distrust);
    }
}

void QtMailSocket::tell(MailLoss why, const QString& words)
{
    if (m_listener != nullptr) {
        m_listener->lost(why, words);
    }
}

QString QtMailSocket::LocalHostName() const
{
    return QSysInfo::machineHostName();
}

int QtMailSocket::State() const
{
    if (m_failed) {
        return Error;
    }
    if (m_socket == nullptr) {
        return Closed;
    }
    switch (m_socket->state()) {
    case QAbstractSocket::HostLookupState:
        return ResolvingHost;
    case QAbstractSocket::ConnectingState:
        return Connecting;
    case QAbstractSocket::ConnectedState:
        return Connected;
    default:
        return PeerClosing;
    }
}

void QtMailSocket::SendData(const QByteArray& data)
{
    if (State() == Connected) {
        m_socket->write(data);
    }
}

QByteArray QtMailSocket::GetData()
{
    return m_socket != nullptr ? m_socket->readAll() : QByteArray();
}

void QtMailSocket::secure()
{
    if (m_secured != nullptr) {
        m_secured->startClientEncryption();
    }
}

qint64 QtMailSocket::unsent() const
{
    if (m_socket == nullptr) {
        return 0;
    }
    return m_socket->bytesToWrite() +
           (m_secured != nullptr ? m_secured->encryptedBytesToWrite() : 0);
}

} // namespace platform

extern "C" platform::MailSocket* vistaraMailSocket()
{
    return new platform::QtMailSocket;
}
