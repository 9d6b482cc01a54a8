#include "platform/os/end_requests.h"

#include "platform/os/descriptor.h"

#include <QCoreApplication>
#include <QEvent>
#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace platform {

namespace {

constexpr std::array kSignals{SIGTERM, SIGHUP, SIGINT};

// The writing end of the pipe, all that a signal's handler may touch.
volatile std::sig_atomic_t g_pipe = -1;

void passOn(int /*signal*/)
{
    const int before = errno;
    const char byte = 1;
    // A full pipe holds requests enough.
    static_cast<void>(::write(g_pipe, &byte, 1) == 1);
    errno = before;
}

// Whoever started the program may have had a signal ignored, as nohup does.
void catchUnlessIgnored(int signal)
{
    struct sigaction now = {};
    if (::sigaction(signal, nullptr, &now) != 0 || now.sa_handler == SIG_IGN) {
        return;
    }
    struct sigaction caught = {};
    caught.sa_handler = passOn;
    caught.sa_flags = SA_RESTART;
    ::sigemptyset(&caught.sa_mask);
    ::sigaction(signal, &caught, nullptr);
}

void letGo(int signal)
{
    struct sigaction now = {};
    if (::sigaction(signal, nullptr, &now) == 0 && now.sa_handler == passOn) {
        std::signal(signal, SIG_DFL);
    }
}

void empty(int descriptor)
{
    std::array<char, 64> bytes{};
    while (::read(descriptor, bytes.data(), bytes.size()) > 0) {
    }
}

} // namespace

class EndRequests::Receiver : public QObject {
public:
    Receiver()
    {
        std::array<int, 2> ends = {-1, -1};
        if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
            return; // signals do what they always did
        }
        m_reading = Descriptor(ends[0]);
        m_writing = Descriptor(ends[1]);
        g_pipe = ends[1];
        for (const int signal : kSignals) {
            catchUnlessIgnored(signal);
        }
    }

    ~Receiver() override
    {
        for (const int signal : kSignals) {
            letGo(signal);
        }
        g_pipe = -1;
    }

    Receiver(const Receiver&) = delete;
    Receiver& operator=(const Receiver&) = delete;

    void deliverTo(std::function<void()> handler)
    {
        m_handler = std::move(handler);
        QCoreApplication::instance()->installEventFilter(this);
        if (!m_reading.isOpen()) {
            return;
        }
        m_notifier = std::make_unique<QSocketNotifier>(m_reading.get(), QSocketNotifier::Read);
        QObject::connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
            empty(m_reading.get());
            m_handler();
        });
    }

    // A session's end arrives as the wish that the application quit, which by itself would close
    // the windows in any order.
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::Quit || watched != QCoreApplication::instance()) {
            return QObject::eventFilter(watched, event);
        }
        m_handler();
        return true;
    }

private:
    Descriptor m_reading;
    Descriptor m_writing;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::function<void()> m_handler;
};

EndRequests::EndRequests()
    : m_receiver(std::make_unique<Receiver>())
{
}

EndRequests::~EndRequests() = default;

void EndRequests::deliverTo(std::function<void()> handler)
{
    m_receiver->deliverTo(std::move(handler));
}

} // namespace platform
