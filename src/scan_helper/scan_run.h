#pragma once

#include "platform/devices/scan_facts.h"
#include "scan_helper/message_pipe.h"
#include "scan_helper/row_conversion.h"
#include "scan_helper/sane_library.h"

#include <chrono>
#include <cstddef>
#include <span>
#include <variant>
#include <vector>

namespace scan_helper {

// One scan of an open scanner, all frames of it, into memory. What the scanner says about its
// picture before it begins is never used: only then it is exact.
class ScanRun {
public:
    // The memory has room for the largest scan.
    ScanRun(const SaneLibrary& sane, SANE_Handle scanner, MessagePipe& pipe,
            std::span<std::byte> memory);

    // Readies the scanner for another scan, which takes as long as its way home.
    ~ScanRun();
    ScanRun(const ScanRun&) = delete;
    ScanRun& operator=(const ScanRun&) = delete;

    [[nodiscard]] std::variant<platform::ScanShape, platform::ScanFailure> run();

private:
    [[nodiscard]] SANE_Status beginFrame();
    // Good for a frame that is whole or has no more room.
    [[nodiscard]] SANE_Status readFrame(const FrameShape& shape);
    [[nodiscard]] SANE_Status readPlain(const FrameShape& shape);
    [[nodiscard]] SANE_Status readRows(const FrameShape& shape);
    [[nodiscard]] SANE_Status readSome(std::span<std::byte> bytes, std::size_t& got);
    void preferWaiting();
    void tellRows(const FrameShape& shape);

    const SaneLibrary& m_sane;
    SANE_Handle m_scanner;
    MessagePipe& m_pipe;
    std::span<std::byte> m_memory;
    int m_scannerDescriptor = -1; // readable when there are bytes, where the driver has one
    std::size_t m_rows = 0;       // whole rows of the frame under way
    std::size_t m_frames = 0;     // that are done
    std::size_t m_framesInAll = 1;
    std::uint32_t m_toldRows = 0;
    std::chrono::steady_clock::time_point m_told;
};

} // namespace scan_helper
