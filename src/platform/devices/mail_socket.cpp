#include "platform/devices/mail_socket.h"

#include "platform/os/paths.h"

#include <QLibrary>
#include <QSysInfo>
#include <utility>

namespace platform {

namespace {

constexpr char kDoor[] = "vistaraMailSocket"; // see qt_mail_socket.h
using Door = MailSocket* (*)();

MailSockets* g_sockets = nullptr;

// Reaches nobody, in the place of a library that can't be loaded, and says why.
class LostSocket : public MailSocket {
public:
    explicit LostSocket(QString why)
        : m_why(std::move(why))
    {
    }

    void Close() override {}
    void setLocalPort(int /*port*/) override {}
    void setProtocol(int /*protocol*/) override {}
    void setRemoteHost(const QString& host) override { m_host = host; }
    [[nodiscard]] QString RemoteHost() const override { return m_host; }
    void setRemotePort(int /*port*/) override {}
    void Connect() override
    {
        if (m_listener != nullptr) {
            m_listener->lost(MailLoss::Network, m_why);
        }
    }
    [[nodiscard]] QString LocalHostName() const override { return QSysInfo::machineHostName(); }
    [[nodiscard]] int State() const override { return Error; }
    void SendData(const QByteArray& /*data*/) override {}
    [[nodiscard]] QByteArray GetData() override { return {}; }
    void setEncryption(MailEncryption /*encryption*/) override {}
    void secure() override {}
    [[nodiscard]] qint64 unsent() const override { return 0; }

private:
    QString m_why;
    QString m_host;
};

// The library stays loaded.
std::unique_ptr<MailSocket> socketOfSystem()
{
    QLibrary library(joinPath(programFolder(), QStringLiteral("vistara-mail.so")));
    if (const auto door = reinterpret_cast<Door>(library.resolve(kDoor))) {
        return std::unique_ptr<MailSocket>(door());
    }
    return std::make_unique<LostSocket>(library.errorString());
}

} // namespace

std::unique_ptr<MailSocket> makeMailSocket()
{
    return g_sockets != nullptr ? g_sockets->make() : socketOfSystem();
}

ScopedMailSockets::ScopedMailSockets(MailSockets& replacement)
    : m_previous(std::exchange(g_sockets, &replacement))
{
}

ScopedMailSockets::~ScopedMailSockets()
{
    g_sockets = m_previous;
}

} // namespace platform
