#pragma once

#include "formats/raw_image.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

namespace fuzz {

// Pictures above this size are read once only, so that each input stays well below a second.
inline constexpr std::size_t kComparedBytes = std::size_t{1} << 20U;

inline bool same(const RawImage& left, const RawImage& right)
{
    return left.Width == right.Width && left.Height == right.Height &&
           left.BitDepth == right.BitDepth && left.Palette == right.Palette &&
           left.Pixels == right.Pixels;
}

// Reads the input into a fresh record and then into the same one again. What the first pass has
// left there must not show through in the second.
template<typename Read> int readTwice(Read read)
{
    RawImage image;
    read(image);
    if (image.Pixels.size() <= kComparedBytes) {
        const RawImage first = image;
        std::fill(image.Pixels.begin(), image.Pixels.end(), std::uint8_t{0xA5});
        read(image);
        RawImage untouched = first;
        std::fill(untouched.Pixels.begin(), untouched.Pixels.end(), std::uint8_t{0xA5});
        if (!same(image, first) && !same(image, untouched)) {
            std::abort();
        }
    }
    return 0;
}

inline int reader(void (*read)(std::span<const std::byte>, RawImage&), const std::uint8_t* data,
                  std::size_t size)
{
    const auto file = std::as_bytes(std::span(data, size));
    return readTwice([&](RawImage& image) { read(file, image); });
}

} // namespace fuzz
