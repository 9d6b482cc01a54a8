#include "formats/pixel_order.h"

#include <algorithm>
#include <array>
#include <cstring>

#if defined(__x86_64__)
#include <tmmintrin.h>
#endif

namespace formats {

namespace {

using Bytes = std::span<const std::uint8_t>;
using Target = std::span<std::uint8_t>;

void interleaveOneByOne(Bytes blue, Bytes green, Bytes red, Target pixels)
{
    for (std::size_t i = 0; i < blue.size(); ++i) {
        pixels[3 * i] = blue[i];
        pixels[3 * i + 1] = green[i];
        pixels[3 * i + 2] = red[i];
    }
}

void reverseOneByOne(Bytes triples, Target pixels)
{
    for (std::size_t i = 0; i + 2 < triples.size(); i += 3) {
        pixels[i] = triples[i + 2];
        pixels[i + 1] = triples[i + 1];
        pixels[i + 2] = triples[i];
    }
}

// The blocks below return how many bytes of pixels they have written, a multiple of 48; the target
// of each block lies at a multiple of 16.
constexpr std::size_t kVector = 16;
constexpr std::size_t kBlock = 3 * kVector;

#if defined(__x86_64__)

// Where each byte of a vector comes from in another one.
using Shuffle = std::array<std::uint8_t, kVector>;

constexpr std::uint8_t kNowhere = 0x80;

// For each third of a block, then each plane.
constexpr auto kInterleaveShuffles = [] {
    std::array<std::array<Shuffle, 3>, 3> shuffles{};
    for (std::size_t byte = 0; byte < kBlock; ++byte) {
        for (std::size_t plane = 0; plane < 3; ++plane) {
            shuffles[byte / kVector][plane][byte % kVector] =
                plane == byte % 3 ? static_cast<std::uint8_t>(byte / 3) : kNowhere;
        }
    }
    return shuffles;
}();

// For each third of a block, then each third of its source.
constexpr auto kReverseShuffles = [] {
    std::array<std::array<Shuffle, 3>, 3> shuffles{};
    for (std::size_t byte = 0; byte < kBlock; ++byte) {
        const std::size_t source = byte / 3 * 3 + 2 - byte % 3;
        for (std::size_t third = 0; third < 3; ++third) {
            shuffles[byte / kVector][third][byte % kVector] =
                source / kVector == third ? static_cast<std::uint8_t>(source % kVector) : kNowhere;
        }
    }
    return shuffles;
}();

bool hasShuffles()
{
    static const bool supported = __builtin_cpu_supports("ssse3") != 0;
    return supported;
}

__m128i load(const std::uint8_t* bytes)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
}

// The processor's own prefetcher stops at the end of a page and lags behind one single stream of
// bytes. Two pages ahead keep the loop at the speed of the memory.
constexpr std::size_t kPrefetchAhead = 8192;

void prefetch(const std::uint8_t* bytes)
{
    // Only a hint, so that the address may lie behind the end of the source.
    _mm_prefetch(
        reinterpret_cast<const char*>(reinterpret_cast<std::uintptr_t>(bytes) + kPrefetchAhead),
        _MM_HINT_T0);
}

template<Memory kMemory> void store(std::uint8_t* target, __m128i vector)
{
    auto* const place = reinterpret_cast<__m128i*>(target);
    if constexpr (kMemory == Memory::reused) {
        _mm_stream_si128(place, vector);
    } else {
        _mm_store_si128(place, vector);
    }
}

template<Memory kMemory>
[[gnu::target("ssse3")]] void writeBlock(std::uint8_t* target,
                                         const std::array<std::array<Shuffle, 3>, 3>& shuffles,
                                         __m128i first, __m128i second, __m128i third)
{
    for (std::size_t part = 0; part < 3; ++part) {
        const auto& shuffle = shuffles[part];
        const __m128i picked =
            _mm_or_si128(_mm_shuffle_epi8(first, load(shuffle[0].data())),
                         _mm_or_si128(_mm_shuffle_epi8(second, load(shuffle[1].data())),
                                      _mm_shuffle_epi8(third, load(shuffle[2].data()))));
        store<kMemory>(target + part * kVector, picked);
    }
}

template<Memory kMemory>
[[gnu::target("ssse3")]] std::size_t interleaveBlocks(Bytes blue, Bytes green, Bytes red,
                                                      Target pixels)
{
    std::size_t i = 0;
    for (; i + kVector <= blue.size(); i += kVector) {
        writeBlock<kMemory>(pixels.data() + 3 * i, kInterleaveShuffles, load(blue.data() + i),
                            load(green.data() + i), load(red.data() + i));
    }
    _mm_sfence();
    return 3 * i;
}

template<Memory kMemory>
[[gnu::target("ssse3")]] std::size_t reverseBlocks(Bytes triples, Target pixels)
{
    std::size_t i = 0;
    for (; i + kBlock <= triples.size(); i += kBlock) {
        const std::uint8_t* const source = triples.data() + i;
        prefetch(source);
        writeBlock<kMemory>(pixels.data() + i, kReverseShuffles, load(source),
                            load(source + kVector), load(source + 2 * kVector));
    }
    _mm_sfence();
    return i;
}

template<Memory kMemory> std::size_t copyBlocks(Bytes bytes, Target pixels)
{
    std::size_t i = 0;
    for (; i + kBlock <= bytes.size(); i += kBlock) {
        const std::uint8_t* const source = bytes.data() + i;
        prefetch(source);
        const __m128i first = load(source);
        const __m128i second = load(source + kVector);
        const __m128i third = load(source + 2 * kVector);
        store<kMemory>(pixels.data() + i, first);
        store<kMemory>(pixels.data() + i + kVector, second);
        store<kMemory>(pixels.data() + i + 2 * kVector, third);
    }
    _mm_sfence();
    return i;
}

#else

bool hasShuffles()
{
    return false;
}

template<Memory> std::size_t interleaveBlocks(Bytes, Bytes, Bytes, Target)
{
    return 0;
}

template<Memory> std::size_t reverseBlocks(Bytes, Target)
{
    return 0;
}

template<Memory> std::size_t copyBlocks(Bytes, Target)
{
    return 0;
}

#endif

// Bytes before the first multiple of 16.
std::size_t bytesToVector(const std::uint8_t* address)
{
    return (kVector - reinterpret_cast<std::uintptr_t>(address) % kVector) % kVector;
}

// Triples before the first one that begins at a multiple of 16; 11 times 3 is 1 more than 32.
std::size_t triplesToVector(const std::uint8_t* address)
{
    return bytesToVector(address) * 11 % kVector;
}

} // namespace

void interleavePlanes(Bytes blue, Bytes green, Bytes red, Target pixels, Memory memory)
{
    const std::size_t lead = std::min(triplesToVector(pixels.data()), blue.size());
    interleaveOneByOne(blue.first(lead), green, red, pixels);
    std::size_t done = lead;
    if (hasShuffles()) {
        const auto blocks = memory == Memory::fresh ? interleaveBlocks<Memory::fresh>
                                                    : interleaveBlocks<Memory::reused>;
        done += blocks(blue.subspan(lead), green.subspan(lead), red.subspan(lead),
                       pixels.subspan(3 * lead)) /
                3;
    }
    interleaveOneByOne(blue.subspan(done), green.subspan(done), red.subspan(done),
                       pixels.subspan(3 * done));
}

void reverseTriples(Bytes triples, Target pixels, Memory memory)
{
    const std::size_t lead = std::min(3 * triplesToVector(pixels.data()), triples.size());
    reverseOneByOne(triples.first(lead), pixels);
    std::size_t done = lead;
    if (hasShuffles()) {
        const auto blocks =
            memory == Memory::fresh ? reverseBlocks<Memory::fresh> : reverseBlocks<Memory::reused>;
        done += blocks(triples.subspan(lead), pixels.subspan(lead));
    }
    reverseOneByOne(triples.subspan(done), pixels.subspan(done));
}

void copyBytes(Bytes bytes, Target pixels, Memory memory)
{
    const std::size_t lead = std::min(bytesToVector(pixels.data()), bytes.size());
    std::copy_n(bytes.begin(), lead, pixels.begin());
    const auto blocks =
        memory == Memory::fresh ? copyBlocks<Memory::fresh> : copyBlocks<Memory::reused>;
    const std::size_t done = lead + blocks(bytes.subspan(lead), pixels.subspan(lead));
    std::copy(bytes.begin() + static_cast<std::ptrdiff_t>(done), bytes.end(),
              pixels.begin() + static_cast<std::ptrdiff_t>(done));
}

} // namespace formats
