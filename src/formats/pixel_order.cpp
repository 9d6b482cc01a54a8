#include "formats/pixel_order.h"

namespace formats {

namespace {

// The loops are plain, and the compiler turns them into shuffles as wide as it may. They are
// compiled twice, because what every processor has is three times slower than what most have.

[[gnu::always_inline]] inline void interleave(const std::uint8_t* __restrict blue,
                                              const std::uint8_t* __restrict green,
                                              const std::uint8_t* __restrict red,
                                              std::uint8_t* __restrict pixels, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        pixels[3 * i] = blue[i];
        pixels[3 * i + 1] = green[i];
        pixels[3 * i + 2] = red[i];
    }
}

[[gnu::always_inline]] inline void reverse(const std::uint8_t* __restrict triples,
                                           std::uint8_t* __restrict pixels, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        pixels[3 * i] = triples[3 * i + 2];
        pixels[3 * i + 1] = triples[3 * i + 1];
        pixels[3 * i + 2] = triples[3 * i];
    }
}

#if defined(__x86_64__)

bool hasWideShuffles()
{
    static const bool supported = __builtin_cpu_supports("avx2") != 0;
    return supported;
}

[[gnu::target("avx2")]] void interleaveWide(const std::uint8_t* blue, const std::uint8_t* green,
                                            const std::uint8_t* red, std::uint8_t* pixels,
                                            std::size_t count)
{
    interleave(blue, green, red, pixels, count);
}

[[gnu::target("avx2")]] void reverseWide(const std::uint8_t* triples, std::uint8_t* pixels,
                                         std::size_t count)
{
    reverse(triples, pixels, count);
}

#else

bool hasWideShuffles()
{
    return false;
}

constexpr auto interleaveWide = interleave;
constexpr auto reverseWide = reverse;

#endif

} // namespace

void interleavePlanes(std::span<const std::uint8_t> blue, std::span<const std::uint8_t> green,
                      std::span<const std::uint8_t> red, std::span<std::uint8_t> pixels)
{
    const std::size_t count = blue.size();
    const auto* const greens = green.first(count).data();
    const auto* const reds = red.first(count).data();
    auto* const target = pixels.first(3 * count).data();
    if (hasWideShuffles()) {
        interleaveWide(blue.data(), greens, reds, target, count);
    } else {
        interleave(blue.data(), greens, reds, target, count);
    }
}

void reverseTriples(std::span<const std::uint8_t> triples, std::span<std::uint8_t> pixels)
{
    const std::size_t count = triples.size() / 3;
    auto* const target = pixels.first(3 * count).data();
    if (hasWideShuffles()) {
        reverseWide(triples.data(), target, count);
    } else {
        reverse(triples.data(), target, count);
    }
}

} // namespace formats
