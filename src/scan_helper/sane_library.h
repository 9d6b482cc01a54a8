#pragma once

#include "platform/devices/scan_facts.h"

#include <optional>
#include <sane/sane.h>
#include <sane/saneopts.h>

namespace scan_helper {

// The functions of the system's library for scanners.
struct SaneLibrary {
    decltype(&::sane_init) init = nullptr;
    decltype(&::sane_exit) exit = nullptr;
    decltype(&::sane_get_devices) getDevices = nullptr;
    decltype(&::sane_open) open = nullptr;
    decltype(&::sane_close) close = nullptr;
    decltype(&::sane_get_option_descriptor) descriptor = nullptr;
    decltype(&::sane_control_option) control = nullptr;
    decltype(&::sane_get_parameters) parameters = nullptr;
    decltype(&::sane_start) start = nullptr;
    decltype(&::sane_read) read = nullptr;
    decltype(&::sane_cancel) cancel = nullptr;
    decltype(&::sane_set_io_mode) setIoMode = nullptr;
    decltype(&::sane_get_select_fd) selectDescriptor = nullptr;
};

// Nothing where the system has none, or one without all of them. It is never unloaded.
[[nodiscard]] std::optional<SaneLibrary> loadSane();

// What a status other than SANE_STATUS_GOOD means. Newer libraries know more of them.
[[nodiscard]] platform::ScanFailure failureOf(SANE_Status status);

} // namespace scan_helper
