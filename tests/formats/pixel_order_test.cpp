#include "formats/pixel_order.h"

#include <gtest/gtest.h>
#include <numeric>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::uint8_t kUntouched = 0xEE;

// Sizes around the blocks of the fast loops, each at all offsets of a vector.
constexpr std::size_t kMostPixels = 70;
constexpr std::size_t kMostOffset = 17;

Bytes counting(std::size_t count)
{
    Bytes bytes(count);
    std::iota(bytes.begin(), bytes.end(), std::uint8_t{1});
    return bytes;
}

// Runs the loop for each size and offset; only the bytes of its target may change.
template<typename Run, typename Expect>
void forEachPlaceIn(formats::Memory memory, Run run, Expect expect)
{
    for (std::size_t pixels = 0; pixels <= kMostPixels; ++pixels) {
        for (std::size_t offset = 0; offset <= kMostOffset; ++offset) {
            const Bytes source = counting(offset + 3 * pixels);
            const auto from = std::span(source).subspan(offset);
            Bytes target(offset + 3 * pixels + 32, kUntouched);
            run(from, std::span(target).subspan(offset, 3 * pixels), memory);
            Bytes expected(target.size(), kUntouched);
            for (std::size_t i = 0; i < 3 * pixels; ++i) {
                expected[offset + i] = from[expect(i, pixels)];
            }
            ASSERT_EQ(target, expected) << pixels << " pixels at " << offset;
        }
    }
}

template<typename Run, typename Expect> void forEachPlace(Run run, Expect expect)
{
    forEachPlaceIn(formats::Memory::fresh, run, expect);
    forEachPlaceIn(formats::Memory::reused, run, expect);
}

} // namespace

TEST(PixelOrder, InterleavesPlanesAtAnyPlace)
{
    forEachPlace(
        [](auto from, auto target, auto memory) {
            const std::size_t count = from.size() / 3;
            formats::interleavePlanes(from.first(count), from.subspan(count, count),
                                      from.last(count), target, memory);
        },
        [](std::size_t i, std::size_t pixels) { return i % 3 * pixels + i / 3; });
}

TEST(PixelOrder, ReversesTriplesAtAnyPlace)
{
    forEachPlace(
        [](auto from, auto target, auto memory) { formats::reverseTriples(from, target, memory); },
        [](std::size_t i, std::size_t) { return i / 3 * 3 + 2 - i % 3; });
}

TEST(PixelOrder, CopiesBytesAtAnyPlace)
{
    forEachPlace(
        [](auto from, auto target, auto memory) { formats::copyBytes(from, target, memory); },
        [](std::size_t i, std::size_t) { return i; });
}
