#include "formats/psd_planes.h"

#include "formats/pixel_order.h"

#include <algorithm>

namespace formats {

namespace {

// The slot of each plane, in the order of the file; the last one is the opacity, which only takes
// part in the question whether all planes are there.
constexpr std::array kTargets{2, 1, 0, 3};
constexpr int kBlue = 0;

bool isColour(int slot)
{
    return slot < 3;
}

// A run beyond the last pixel finds one spare byte, and only at the first slot.
bool overhangFits(RunStream<PackBits>& stream, int slot)
{
    if (stream.pending() == 0) {
        return true;
    }
    return slot == kBlue && stream.pending() == 1 && stream.skip(1) == 1;
}

} // namespace

PsdPlane PsdPlane::raw(std::span<const std::byte> pixels)
{
    PsdPlane plane;
    plane.m_raw = asNumbers(pixels);
    plane.m_left = pixels.size();
    return plane;
}

PsdPlane PsdPlane::packed(std::span<const std::byte> data, std::size_t position,
                          std::size_t pixelCount)
{
    PsdPlane plane;
    plane.m_packed.emplace(data, position);
    plane.m_left = pixelCount;
    return plane;
}

std::span<const std::uint8_t> PsdPlane::next(std::size_t count)
{
    const std::size_t present = std::min(count, m_left);
    m_left -= present;
    if (!m_packed && present == count) {
        const auto pixels = m_raw.first(count);
        m_raw = m_raw.subspan(count);
        return pixels;
    }
    m_part.resize(count);
    std::size_t filled = present;
    if (m_packed) {
        filled = m_packed->fill(std::span(m_part).first(present));
    } else {
        std::copy_n(m_raw.begin(), present, m_part.begin());
    }
    std::fill(m_part.begin() + static_cast<std::ptrdiff_t>(filled), m_part.end(), std::uint8_t{0});
    return m_part;
}

PsdPlanes findRawPlanes(std::span<const std::byte> data, int channels, std::size_t pixelCount)
{
    PsdPlanes planes;
    for (const int slot : kTargets) {
        if (slot > channels) {
            continue;
        }
        const auto pixels = data.first(std::min(pixelCount, data.size()));
        if (isColour(slot)) {
            planes.colours.at(static_cast<std::size_t>(slot)) = PsdPlane::raw(pixels);
        }
        if (pixels.size() < pixelCount) {
            planes.complete = false;
            break;
        }
        data = data.subspan(pixelCount);
    }
    return planes;
}

PsdPlanes findPackedPlanes(std::span<const std::byte> data, int channels,
                           std::optional<std::int32_t> start, std::size_t pixelCount)
{
    PsdPlanes planes;
    const bool nothingToRead = channels == 0 || pixelCount == 0;
    if (!start || (*start < 0 && !nothingToRead)) {
        planes.complete = false;
        return planes;
    }
    auto position = static_cast<std::size_t>(std::max(*start, 0));
    for (const int slot : kTargets) {
        if (slot >= channels) {
            continue;
        }
        RunStream<PackBits> stream(data, position);
        const std::size_t present = stream.skip(pixelCount);
        if (isColour(slot)) {
            planes.colours.at(static_cast<std::size_t>(slot)) =
                PsdPlane::packed(data, position, present);
        }
        if (present < pixelCount || !overhangFits(stream, slot)) {
            planes.complete = false;
            break;
        }
        position = stream.position();
    }
    return planes;
}

} // namespace formats
