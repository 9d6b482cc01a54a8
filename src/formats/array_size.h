#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace formats {

// No array of a picture may be larger than this; a size beyond it comes from a damaged file. A few
// bytes can fill a PCX picture of any size, and under the checks of the fuzzers the largest one
// would take longer than they allow.
#ifdef FUZZING_BUILD_MODE_UNSAFE_FOR_PRODUCTION
inline constexpr std::int64_t kLargestArray = std::int64_t{128} << 20;
#else
inline constexpr std::int64_t kLargestArray = std::int64_t{512} << 20;
#endif

// The byte count as a size to ask memory for; nothing when it is negative or too large.
[[nodiscard]] constexpr std::optional<std::size_t> arraySize(std::int64_t bytes)
{
    if (bytes < 0 || bytes > kLargestArray) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(bytes);
}

} // namespace formats
