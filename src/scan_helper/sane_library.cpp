#include "scan_helper/sane_library.h"

#include <dlfcn.h>

namespace scan_helper {

namespace {

template<typename Function> bool find(void* library, const char* name, Function& function)
{
    function = reinterpret_cast<Function>(::dlsym(library, name));
    return function != nullptr;
}

} // namespace

std::optional<SaneLibrary> loadSane()
{
    void* library = ::dlopen("libsane.so.1", RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        return std::nullopt;
    }
    SaneLibrary sane;
    const bool isWhole =
        find(library, "sane_init", sane.init) && find(library, "sane_exit", sane.exit) &&
        find(library, "sane_get_devices", sane.getDevices) &&
        find(library, "sane_open", sane.open) && find(library, "sane_close", sane.close) &&
        find(library, "sane_get_option_descriptor", sane.descriptor) &&
        find(library, "sane_control_option", sane.control) &&
        find(library, "sane_get_parameters", sane.parameters) &&
        find(library, "sane_start", sane.start) && find(library, "sane_read", sane.read) &&
        find(library, "sane_cancel", sane.cancel) &&
        find(library, "sane_set_io_mode", sane.setIoMode) &&
        find(library, "sane_get_select_fd", sane.selectDescriptor);
    return isWhole ? std::optional(sane) : std::nullopt;
}

platform::ScanFailure failureOf(SANE_Status status)
{
    using platform::ScanFailure;
    switch (status) {
    case SANE_STATUS_UNSUPPORTED:
        return ScanFailure::Unsupported;
    case SANE_STATUS_CANCELLED:
        return ScanFailure::Cancelled;
    case SANE_STATUS_INVAL:
        return ScanFailure::NotThere;
    case SANE_STATUS_EOF:
        return ScanFailure::Empty;
    case SANE_STATUS_JAMMED:
        return ScanFailure::Jammed;
    case SANE_STATUS_NO_DOCS:
        return ScanFailure::NoDocuments;
    case SANE_STATUS_COVER_OPEN:
        return ScanFailure::CoverOpen;
    case SANE_STATUS_IO_ERROR:
        return ScanFailure::Unreachable;
    case SANE_STATUS_NO_MEM:
        return ScanFailure::NoMemory;
    case SANE_STATUS_ACCESS_DENIED:
        return ScanFailure::AccessDenied;
    default: // also of a lamp that warms up or a lock on the carriage
        return ScanFailure::Busy;
    }
}

} // namespace scan_helper
