#include "scan_helper/scan_run.h"

#include <algorithm>

namespace scan_helper {

namespace {

using platform::ScanFailure;
using platform::ScanShape;

constexpr std::size_t kMostAtOnce = std::size_t(1) << 20; // bytes
constexpr std::chrono::milliseconds kTellEvery(50);
constexpr int kPause = 10;         // milliseconds, where a driver gives nothing yet
constexpr int kLongestPause = 500; // for one that says when it has

// Rows that a frame may have.
std::size_t mostRows(const FrameShape& shape)
{
    return shape.rows != 0 ? shape.rows : platform::mostScanRows(shape.width);
}

} // namespace

ScanRun::ScanRun(const SaneLibrary& sane, SANE_Handle scanner, MessagePipe& pipe,
                 std::span<std::byte> memory)
    : m_sane(sane)
    , m_scanner(scanner)
    , m_pipe(pipe)
    , m_memory(memory)
{
}

ScanRun::~ScanRun()
{
    m_sane.cancel(m_scanner);
}

SANE_Status ScanRun::beginFrame()
{
    if (m_pipe.wantsCancel()) {
        return SANE_STATUS_CANCELLED;
    }
    const SANE_Status status = m_sane.start(m_scanner);
    if (status == SANE_STATUS_GOOD) {
        preferWaiting();
    }
    return status;
}

// A driver that can be waited for outside of it doesn't keep a request to cancel waiting.
void ScanRun::preferWaiting()
{
    m_scannerDescriptor = -1;
    const bool canWait =
        m_sane.setIoMode(m_scanner, SANE_TRUE) == SANE_STATUS_GOOD &&
        m_sane.selectDescriptor(m_scanner, &m_scannerDescriptor) == SANE_STATUS_GOOD;
    if (!canWait) {
        m_scannerDescriptor = -1;
        static_cast<void>(m_sane.setIoMode(m_scanner, SANE_FALSE));
    }
}

// A picture has one frame, or one for each of red, green and blue, of the same width.
std::variant<ScanShape, ScanFailure> ScanRun::run()
{
    ScanShape picture;
    for (bool isLast = false; !isLast; ++m_frames) {
        SANE_Parameters parameters{};
        SANE_Status status = beginFrame();
        if (status == SANE_STATUS_GOOD) {
            status = m_sane.parameters(m_scanner, &parameters);
        }
        if (status != SANE_STATUS_GOOD) {
            return failureOf(status);
        }
        const auto checked = checkedShape(parameters);
        if (const auto* failure = std::get_if<ScanFailure>(&checked)) {
            return *failure;
        }
        const auto& shape = std::get<FrameShape>(checked);
        m_framesInAll = shape.samples == shape.channels ? 1 : 3;
        if (m_frames != 0 && (shape.width != picture.width || m_framesInAll == 1)) {
            return ScanFailure::Nonsense;
        }
        status = readFrame(shape);
        if (status != SANE_STATUS_GOOD) {
            return failureOf(status);
        }
        const auto rows = std::uint32_t(m_rows);
        picture.rows = m_frames == 0 ? rows : std::min(picture.rows, rows);
        picture.width = std::uint32_t(shape.width);
        picture.channels = std::uint32_t(shape.channels);
        isLast = shape.isLast || m_frames + 1 == m_framesInAll;
    }
    return picture.rows == 0 ? std::variant<ScanShape, ScanFailure>(ScanFailure::Empty) : picture;
}

SANE_Status ScanRun::readFrame(const FrameShape& shape)
{
    m_rows = 0;
    const SANE_Status status = shape.isPlain() ? readPlain(shape) : readRows(shape);
    return status == SANE_STATUS_EOF ? SANE_STATUS_GOOD : status;
}

// The scanner's bytes are the picture's and go straight there.
SANE_Status ScanRun::readPlain(const FrameShape& shape)
{
    const std::span<std::byte> room = m_memory.first(mostRows(shape) * shape.rowBytes);
    std::size_t at = 0;
    SANE_Status status = SANE_STATUS_GOOD;
    while (status == SANE_STATUS_GOOD && at < room.size()) {
        std::size_t got = 0;
        status = readSome(room.subspan(at, std::min(kMostAtOnce, room.size() - at)), got);
        at += got;
        m_rows = at / shape.rowBytes;
        tellRows(shape);
    }
    return status;
}

SANE_Status ScanRun::readRows(const FrameShape& shape)
{
    const std::size_t rowsAtOnce = std::max<std::size_t>(1, kMostAtOnce / shape.rowBytes);
    std::vector<std::byte> buffer(rowsAtOnce * shape.rowBytes);
    std::size_t filled = 0;
    SANE_Status status = SANE_STATUS_GOOD;
    while (status == SANE_STATUS_GOOD && m_rows < mostRows(shape)) {
        std::size_t got = 0;
        status = readSome(std::span(buffer).subspan(filled), got);
        filled += got;
        std::span<const std::byte> left = std::span(buffer).first(filled);
        for (; left.size() >= shape.rowBytes && m_rows < mostRows(shape); ++m_rows) {
            convertRow(shape, left.first(shape.rowBytes),
                       m_memory.subspan(m_rows * shape.pictureRowBytes(), shape.pictureRowBytes()));
            left = left.subspan(shape.rowBytes);
        }
        std::copy(left.begin(), left.end(), buffer.begin());
        filled = left.size();
        tellRows(shape);
    }
    return status;
}

// Some drivers take a read that finds nothing for the end, so the wait comes first.
SANE_Status ScanRun::readSome(std::span<std::byte> bytes, std::size_t& got)
{
    const bool canWait = m_scannerDescriptor >= 0;
    const bool isReady = !canWait || m_pipe.waitFor(m_scannerDescriptor, kLongestPause);
    if (m_pipe.wantsCancel()) {
        return SANE_STATUS_CANCELLED;
    }
    if (!isReady) {
        return SANE_STATUS_GOOD;
    }
    SANE_Int length = 0;
    const SANE_Status status = m_sane.read(m_scanner, reinterpret_cast<SANE_Byte*>(bytes.data()),
                                           SANE_Int(bytes.size()), &length);
    got = status == SANE_STATUS_GOOD ? std::size_t(std::max(0, length)) : 0;
    got = std::min(bytes.size(), got);
    if (status == SANE_STATUS_GOOD && got == 0) {
        // Some say that they have something and give nothing.
        static_cast<void>(m_pipe.waitFor(-1, kPause));
    }
    return status;
}

// A driver that gives nothing tells nothing either, and counts as silent in the end.
void ScanRun::tellRows(const FrameShape& shape)
{
    const auto soFar = std::uint32_t(m_frames * shape.rows + m_rows);
    const auto now = std::chrono::steady_clock::now();
    if (soFar == m_toldRows || now - m_told < kTellEvery) {
        return;
    }
    m_toldRows = soFar;
    m_told = now;
    m_pipe.answer(platform::rowsMessage(soFar, std::uint32_t(m_framesInAll * shape.rows)));
}

} // namespace scan_helper
