#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace formats {

// No array of a picture may be larger than this; a size beyond it comes from a damaged file.
inline constexpr std::int64_t kLargestArray = std::int64_t{512} << 20;

// The byte count as a size to ask memory for; nothing when it is negative or too large.
[[nodiscard]] constexpr std::optional<std::size_t> arraySize(std::int64_t bytes)
{
    if (bytes < 0 || bytes > kLargestArray) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(bytes);
}

} // namespace formats
