#pragma once

#include "scan_helper/message_pipe.h"
#include "scan_helper/sane_library.h"

#include <cstddef>
#include <span>
#include <string>

namespace scan_helper {

// The system's scanners, of which one at most is open: what the program may ask for.
class Scanner {
public:
    Scanner(const SaneLibrary& sane, MessagePipe& pipe, std::span<std::byte> memory);
    ~Scanner();
    Scanner(const Scanner&) = delete;
    Scanner& operator=(const Scanner&) = delete;

    // False for something that can't be asked for now.
    [[nodiscard]] bool answer(const Request& request);

private:
    [[nodiscard]] bool list();
    [[nodiscard]] bool open(const std::string& name);
    [[nodiscard]] bool tellOptions();
    [[nodiscard]] bool scan(platform::ScanKind kind);
    void fail(platform::ScanFailure why);

    const SaneLibrary& m_sane;
    MessagePipe& m_pipe;
    std::span<std::byte> m_memory;
    SANE_Status m_initialised = SANE_STATUS_GOOD;
    SANE_Handle m_scanner = nullptr;
};

} // namespace scan_helper
