#include "formats/psd_reader.h"

#include "base/numbers.h"
#include "formats/array_size.h"
#include "formats/hooks.h"
#include "formats/pixel_order.h"
#include "formats/psd_planes.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace formats {

namespace {

constexpr std::uint32_t kSignature = 0x38425053;
constexpr std::int64_t kSections = 26;

// Positions count from 1 and have 32 bits with a sign.
constexpr std::size_t kPositions = std::numeric_limits<std::int32_t>::max();

constexpr std::int16_t kRawPixels = 0;

// Pixels that are merged at a time: their planes fit the nearest caches.
constexpr std::size_t kBatch = 8192;

constexpr std::int32_t kMostReports = 32768;

struct Header {
    std::int16_t channels = 0;
    std::int32_t rows = 0;
    std::int32_t columns = 0;
    std::int16_t compression = 0;

    // Where the planes begin.
    std::size_t dataOffset = 0;
};

// Behind the section whose length stands at the offset. Nothing when the signed length leads before
// the file's start or out of 32 bits.
std::optional<std::int64_t> skipSection(const base::ByteReader& file, std::int64_t offset)
{
    const auto length = static_cast<std::int32_t>(file.big32At(static_cast<std::size_t>(offset)));
    const std::int64_t next = offset + 4 + length;
    if (next < 0 || next >= static_cast<std::int64_t>(kPositions)) {
        return std::nullopt;
    }
    return next;
}

bool isSupported(const base::ByteReader& file, const Header& header)
{
    return file.big16At(4) == 1 && header.channels >= 0 && header.channels <= 16 &&
           file.big16At(22) == 8 && file.big16At(24) == 3;
}

// Nothing when the file is refused.
std::optional<Header> readHeader(const base::ByteReader& file)
{
    Header header;
    header.channels = static_cast<std::int16_t>(file.big16At(12));
    header.rows = static_cast<std::int32_t>(file.big32At(14));
    header.columns = static_cast<std::int32_t>(file.big32At(18));
    if (!isSupported(file, header)) {
        return std::nullopt;
    }
    std::int64_t offset = kSections;
    for (int section = 0; section < 3; ++section) {
        const auto next = skipSection(file, offset);
        if (!next) {
            return std::nullopt;
        }
        offset = *next;
    }
    header.compression = static_cast<std::int16_t>(file.big16At(static_cast<std::size_t>(offset)));
    header.dataOffset = static_cast<std::size_t>(offset) + 2;
    if (header.compression > 1 || header.dataOffset >= kPositions) {
        return std::nullopt;
    }
    return header;
}

// Nothing when four bytes for each pixel and a spare one are more than may be asked for.
std::optional<std::size_t> pixelCount(const Header& header)
{
    const auto area = base::narrow32(std::int64_t{header.rows} * header.columns);
    if (!area || *area < 0 || !arraySize(std::int64_t{*area} * 4 + 1)) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(*area);
}

PsdPlanes findPlanes(const base::ByteReader& file, const Header& header, std::size_t pixels)
{
    const auto data = file.from(header.dataOffset);
    if (data.empty() || !arraySize(static_cast<std::int64_t>(data.size()))) {
        PsdPlanes none;
        none.complete = false;
        return none;
    }
    if (header.compression == kRawPixels) {
        return findRawPlanes(data, header.channels, pixels);
    }
    const std::int64_t lengthTable = std::int64_t{header.channels} * header.rows * 2;
    return findPackedPlanes(data, header.channels, base::narrow32(lengthTable), pixels);
}

// Tells the hook of each row once its last pixel is there.
class RowReports {
public:
    RowReports(std::int32_t rows, std::int32_t columns)
        : m_rows(rows)
        , m_columns(columns)
        , m_step(std::max(1, rows / kMostReports))
    {
    }

    void pixelsDone(std::size_t count)
    {
        if (m_columns > 0) {
            rowsDone(static_cast<std::int32_t>(count / static_cast<std::size_t>(m_columns)));
        }
    }

    void allDone() { rowsDone(m_rows); }

private:
    void rowsDone(std::int32_t count)
    {
        const auto& progress = hooks().progress;
        if (!progress || m_rows <= 1) {
            return;
        }
        for (; m_next < count && m_next >= 0; m_next = following()) {
            progress(static_cast<double>(m_next) / (m_rows - 1.0));
        }
    }

    // The last row is never left out.
    [[nodiscard]] std::int32_t following() const
    {
        if (m_next == m_rows - 1) {
            return m_rows;
        }
        return static_cast<std::int32_t>(
            std::min(std::int64_t{m_next} + m_step, std::int64_t{m_rows} - 1));
    }

    std::int32_t m_rows;
    std::int32_t m_columns;
    std::int32_t m_step;
    std::int32_t m_next = 0;
};

void mergePlanes(PsdPlanes& planes, RowReports& reports, ByteBuffer& pixels)
{
    auto& [blue, green, red] = planes.colours;
    const std::size_t count = pixels.size() / 3;
    std::size_t done = 0;
    while (done < count && (blue.left() > 0 || green.left() > 0 || red.left() > 0)) {
        const std::size_t batch = std::min(kBatch, count - done);
        interleavePlanes(blue.next(batch), green.next(batch), red.next(batch),
                         std::span(pixels.data() + 3 * done, 3 * batch), pixels.memory());
        done += batch;
        reports.pixelsDone(done);
    }
    pixels.zeroFrom(3 * done);
    reports.allDone();
}

} // namespace

bool isPsd(const base::ByteReader& file)
{
    return file.big32At(0) == kSignature;
}

bool readPsd(std::span<const std::byte> file, RawImage& image)
{
    const base::ByteReader reader(file);
    if (!isPsd(reader)) {
        return false;
    }
    const auto header = readHeader(reader);
    const auto pixels = header ? pixelCount(*header) : std::nullopt;
    if (!pixels) {
        return false;
    }
    PsdPlanes planes = findPlanes(reader, *header, *pixels);
    if (!planes.complete && hooks().report) {
        hooks().report(kPlanesFailed);
    }
    image.BitDepth = 24;
    image.Width = header->columns;
    image.Height = header->rows;
    image.Palette.clear();
    if (!image.Pixels.resizeForOverwrite(*pixels * 3)) {
        return false;
    }
    if (image.Height < 0) {
        image.Pixels.zeroFrom(0);
        return true;
    }
    RowReports reports(image.Height, image.Width);
    mergePlanes(planes, reports, image.Pixels);
    return true;
}

} // namespace formats
