#pragma once

#include <cstdint>
#include <functional>

namespace files {

// How much of a whole is done: 0 where there is no whole, 100 beyond its end, halves rounded to the
// even number.
[[nodiscard]] std::int16_t PercentOf(std::int64_t part, std::int64_t whole);

// Told the percent of long work.
using ProgressHandler = std::function<void(std::int16_t percent)>;

} // namespace files
