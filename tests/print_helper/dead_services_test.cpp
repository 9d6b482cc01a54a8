#include "platform/devices/queue_printers.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

using platform::PrintFailure;

// Another address of the printing service while it lives.
class ServiceAddress {
public:
    explicit ServiceAddress(const QByteArray& address)
        : m_before(qgetenv("CUPS_SERVER"))
    {
        qputenv("CUPS_SERVER", address);
    }
    ~ServiceAddress() { qputenv("CUPS_SERVER", m_before); }
    ServiceAddress(const ServiceAddress&) = delete;
    ServiceAddress& operator=(const ServiceAddress&) = delete;

private:
    QByteArray m_before;
};

// A service that takes calls and never answers.
class SilentService {
public:
    SilentService()
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path().copy(address.sun_path, sizeof(address.sun_path) - 1);
        EXPECT_EQ(::bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)),
                  0);
        EXPECT_EQ(::listen(m_socket, 100), 0);
    }
    ~SilentService() { ::close(m_socket); }
    SilentService(const SilentService&) = delete;
    SilentService& operator=(const SilentService&) = delete;

    [[nodiscard]] std::string path() const
    {
        return m_folder.filePath(QStringLiteral("socket")).toStdString();
    }

private:
    QTemporaryDir m_folder;
    int m_socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
};

class DeadServices : public testing::Test {
protected:
    // Prints, and gives what was told of it once the sender is through.
    std::vector<PrintFailure> print(platform::QueuePrinters& printers,
                                    platform::PrintSender& sender)
    {
        std::vector<PrintFailure> failures;
        const auto printer =
            printers.open(QStringLiteral("Desk"),
                          {{}, [&failures](PrintFailure why) { failures.push_back(why); }});
        EXPECT_FALSE(printer->metrics().isEmpty());
        EXPECT_TRUE(printer->startDocument(QStringLiteral("Title")));
        static_cast<void>(printer->endDocument());
        while (sender.isBusy()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        return failures;
    }
};

TEST_F(DeadServices, HaveNoPrintersAndLoseDocuments)
{
    const ServiceAddress nowhere("/nowhere/socket");
    platform::QueuePrinters printers;
    EXPECT_TRUE(printers.list().empty());
    EXPECT_EQ(print(printers, platform::printSender()), std::vector{PrintFailure::Gone});
}

TEST_F(DeadServices, AreNotWaitedForWhenTheyAreSilent)
{
    const SilentService service;
    const ServiceAddress silent(QByteArray::fromStdString(service.path()));
    platform::QueuePrinters printers;
    EXPECT_TRUE(printers.list().empty());
    // The first answer wasn't worth waiting for, so none of these waits.
    for (int again = 0; again < 1000; ++again) {
        EXPECT_TRUE(printers.list().empty());
    }
    EXPECT_EQ(print(printers, platform::printSender()), std::vector{PrintFailure::Gone});
}

TEST_F(DeadServices, AreLikeAMissingHelper)
{
    platform::PrintSender sender(QStringLiteral("/nowhere/helper"));
    platform::QueuePrinters printers(QStringLiteral("/nowhere/helper"), sender);
    EXPECT_TRUE(printers.list().empty());
    EXPECT_EQ(print(printers, sender), std::vector{PrintFailure::Gone});
}

TEST_F(DeadServices, AreLikeAHelperThatBreaksOrTalksNonsense)
{
    for (const QString& helper :
         {QStringLiteral("/bin/false"), QStringLiteral("/bin/true"), QStringLiteral("/bin/echo")}) {
        platform::PrintSender sender(helper);
        platform::QueuePrinters printers(helper, sender);
        EXPECT_TRUE(printers.list().empty());
        EXPECT_EQ(print(printers, sender), std::vector{PrintFailure::Gone}) << helper.toStdString();
    }
}

} // namespace
