#include "scan_helper/message_pipe.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <poll.h>
#include <unistd.h>

namespace scan_helper {

bool MessagePipe::readExactly(std::byte* bytes, std::size_t count) const
{
    while (count > 0) {
        const ssize_t got = ::read(m_requests, bytes, count);
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got <= 0) {
            return false;
        }
        bytes += got;
        count -= std::size_t(got);
    }
    return true;
}

std::optional<Request> MessagePipe::next()
{
    std::array<std::byte, platform::kMessageHeadBytes> head{};
    if (!readExactly(head.data(), head.size())) {
        return std::nullopt;
    }
    const auto known = platform::readHead(head);
    if (!known) {
        return std::nullopt;
    }
    Request request{known->kind, std::vector<std::byte>(known->length)};
    return readExactly(request.body.data(), request.body.size()) ? std::optional(request)
                                                                 : std::nullopt;
}

// Nothing else is asked during a scan.
bool MessagePipe::wantsCancel()
{
    pollfd waited{m_requests, POLLIN, 0};
    if (::poll(&waited, 1, 0) <= 0) {
        return false;
    }
    static_cast<void>(next());
    return true;
}

bool MessagePipe::waitFor(int scanner, int milliseconds) const
{
    // A descriptor below 0 is passed over.
    std::array<pollfd, 2> waited{{{m_requests, POLLIN, 0}, {scanner, POLLIN, 0}}};
    return ::poll(waited.data(), waited.size(), milliseconds) > 0 && waited[1].revents != 0;
}

void MessagePipe::answer(const platform::MessageBytes& message) const
{
    const std::byte* bytes = message.data();
    std::size_t left = message.size();
    while (left > 0) {
        const ssize_t written = ::write(m_answers, bytes, left);
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            ::_exit(EXIT_FAILURE);
        }
        bytes += written;
        left -= std::size_t(written);
    }
}

} // namespace scan_helper
