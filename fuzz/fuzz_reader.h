#pragma once

#include "formats/raw_image.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <span>

namespace fuzz {

// Pictures above this size are read once only, so that each input stays well below a second.
inline constexpr std::size_t kComparedBytes = std::size_t{1} << 20U;

// No input may take more processor time than this, with all checks of the sanitizers. It is
// measured here, because libFuzzer's own limit also counts the time that a busy machine gives to
// others.
inline constexpr double kMostSeconds = 1;

inline double processorSeconds()
{
    timespec now = {};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

inline bool same(const RawImage& left, const RawImage& right)
{
    return left.Width == right.Width && left.Height == right.Height &&
           left.BitDepth == right.BitDepth && left.Palette == right.Palette &&
           left.Pixels == right.Pixels;
}

// What the first pass has left in the record must not show through in the second.
template<typename Read> void expectSameAgain(Read read, RawImage& image)
{
    const RawImage first = image;
    std::fill(image.Pixels.begin(), image.Pixels.end(), std::uint8_t{0xA5});
    read(image);
    RawImage untouched = first;
    std::fill(untouched.Pixels.begin(), untouched.Pixels.end(), std::uint8_t{0xA5});
    if (!same(image, first) && !same(image, untouched)) {
        std::abort();
    }
}

// Reads the input into a fresh record and then into the same one again.
template<typename Read> int readTwice(Read read)
{
    const double start = processorSeconds();
    {
        RawImage image;
        read(image);
        if (image.Pixels.size() <= kComparedBytes) {
            expectSameAgain(read, image);
        }
    }
    const double seconds = processorSeconds() - start;
    if (seconds > kMostSeconds) {
        std::fprintf(stderr, "the input took %.2f s\n", seconds);
        std::abort();
    }
    return 0;
}

inline int reader(bool (*read)(std::span<const std::byte>, RawImage&), const std::uint8_t* data,
                  std::size_t size)
{
    const auto file = std::as_bytes(std::span(data, size));
    return readTwice([&](RawImage& image) { read(file, image); });
}

} // namespace fuzz
