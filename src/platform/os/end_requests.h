#pragma once

#include <functional>
#include <memory>

namespace platform {

// What asks the program to end, other than its user: the signals SIGTERM, SIGHUP and SIGINT, and
// the desktop at the end of its session. While one of these lives such a signal doesn't end the
// process; one that was ignored when the process started stays ignored. One at a time.
class EndRequests {
public:
    EndRequests();
    ~EndRequests();
    EndRequests(const EndRequests&) = delete;
    EndRequests& operator=(const EndRequests&) = delete;

    // Calls the handler for each request, from the event loop and from wherever events run; also
    // for one that came before. The application object exists.
    void deliverTo(std::function<void()> handler);

private:
    class Receiver;
    std::unique_ptr<Receiver> m_receiver;
};

} // namespace platform
