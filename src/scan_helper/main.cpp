// Talks to scanners for the program that started it. Drivers hang and crash, so they live here.

#include "scan_helper/message_pipe.h"
#include "scan_helper/process_rules.h"
#include "scan_helper/sane_library.h"
#include "scan_helper/scanner.h"

#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

namespace {

// The memory for the pixels that the program handed over, empty without it.
std::span<std::byte> sharedMemory()
{
    void* start = ::mmap(nullptr, platform::kScanMemoryBytes, PROT_READ | PROT_WRITE, MAP_SHARED,
                         platform::kScanMemory, 0);
    return start == MAP_FAILED
               ? std::span<std::byte>()
               : std::span(static_cast<std::byte*>(start), platform::kScanMemoryBytes);
}

void refuseAll(scan_helper::MessagePipe& pipe, platform::ScanFailure why)
{
    while (pipe.next()) {
        pipe.answer(platform::failedMessage(why));
    }
}

void serve(scan_helper::MessagePipe& pipe)
{
    const auto sane = scan_helper::loadSane();
    const std::span<std::byte> memory = sharedMemory();
    if (!sane || memory.empty()) {
        refuseAll(pipe, !sane ? platform::ScanFailure::NoLibrary : platform::ScanFailure::NoMemory);
        return;
    }
    scan_helper::Scanner scanner(*sane, pipe, memory);
    while (const auto request = pipe.next()) {
        if (!scanner.answer(*request)) {
            return;
        }
    }
}

} // namespace

int main()
{
    scan_helper::limitProcess();
    const int answers = scan_helper::keepAnswersApart();
    if (answers < 0) {
        return EXIT_FAILURE;
    }
    scan_helper::MessagePipe pipe(STDIN_FILENO, answers);
    serve(pipe);
    // Leaves without tidying up after the drivers, many of which crash there.
    ::_exit(EXIT_SUCCESS);
}
