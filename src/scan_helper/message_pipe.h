#pragma once

#include "platform/devices/scan_messages.h"

#include <optional>
#include <vector>

namespace scan_helper {

struct Request {
    platform::ScanMessage kind;
    std::vector<std::byte> body;
};

// The helper's end of the talk with the program.
class MessagePipe {
public:
    MessagePipe(int requests, int answers)
        : m_requests(requests)
        , m_answers(answers)
    {
    }

    // Waits for the next request. Nothing at the end, or after something that is no message.
    [[nodiscard]] std::optional<Request> next();

    // Whether the scan under way is to end: the program asks for it, or has gone. Doesn't wait.
    [[nodiscard]] bool wantsCancel();

    // Waits for a request, bytes of the scanner at another descriptor (-1: none), or this time.
    // Whether the scanner has some.
    [[nodiscard]] bool waitFor(int scanner, int milliseconds) const;

    // Whoever no longer listens ends the process here.
    void answer(const platform::MessageBytes& message) const;

private:
    [[nodiscard]] bool readExactly(std::byte* bytes, std::size_t count) const;

    int m_requests;
    int m_answers;
};

} // namespace scan_helper
