#include "platform/devices/mail_socket.h"

#include <gtest/gtest.h>

namespace {

struct Listener : platform::MailSocketListener {
    void DataArrival() override { ++arrivals; }
    void lost(platform::MailLoss why, const QString& reason) override
    {
        loss = why;
        words = reason;
    }
    int arrivals = 0;
    platform::MailLoss loss = platform::MailLoss::PeerClosed;
    QString words;
};

} // namespace

// There is none beside this program.
TEST(MailSocket, TellsThatItsLibraryCannotBeLoaded)
{
    Listener listener;
    const std::unique_ptr<platform::MailSocket> socket = platform::makeMailSocket();
    socket->setListener(&listener);
    socket->setRemoteHost(QStringLiteral("127.0.0.1"));
    socket->setRemotePort(25);
    socket->Connect();
    EXPECT_EQ(listener.loss, platform::MailLoss::Network);
    EXPECT_TRUE(listener.words.contains(QStringLiteral("vistara-mail.so")));
    EXPECT_EQ(socket->State(), platform::MailSocket::Error);
    EXPECT_EQ(socket->RemoteHost(), QStringLiteral("127.0.0.1"));
    EXPECT_EQ(listener.arrivals, 0);
}
