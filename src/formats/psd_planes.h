#pragma once

#include "formats/run_length.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace formats {

// One colour plane of a layered-image file, read from its start to its end. Behind the pixels that
// the file has, it is black.
class PsdPlane {
public:
    // A plane that isn't there.
    PsdPlane() = default;

    static PsdPlane raw(std::span<const std::byte> pixels);
    static PsdPlane packed(std::span<const std::byte> data, std::size_t position,
                           std::size_t pixelCount);

    // The next pixels; they stand until the next call.
    [[nodiscard]] std::span<const std::uint8_t> next(std::size_t count);

    // Pixels that the file has and that haven't been taken.
    [[nodiscard]] std::size_t left() const { return m_left; }

private:
    std::span<const std::uint8_t> m_raw;
    std::optional<RunStream<PackBits>> m_packed;
    std::size_t m_left = 0;
    std::vector<std::uint8_t> m_part;
};

struct PsdPlanes {
    // Blue, green, red.
    std::array<PsdPlane, 3> colours;

    // False when the data ended too early, or a run went beyond its plane.
    bool complete = true;
};

// Finds the planes in the data behind the header: raw as they follow each other, or packed behind a
// table of line lengths, which start gives the size of (it may be nonsense, if the rows are).
[[nodiscard]] PsdPlanes findRawPlanes(std::span<const std::byte> data, int channels,
                                      std::size_t pixelCount);
[[nodiscard]] PsdPlanes findPackedPlanes(std::span<const std::byte> data, int channels,
                                         std::optional<std::int32_t> start, std::size_t pixelCount);

} // namespace formats
