#pragma once

#include "formats/byte_buffer.h"

#include <cstddef>
#include <cstdint>
#include <span>

// The loops that put the bytes of a picture into their final order. Into reused memory they write
// past the caches, as the picture is as a rule larger than those and nobody reads it before it is
// complete.
namespace formats {

// Writes one blue, green, red triple a pixel from three planes. The planes have the same size, and
// pixels has three times that.
void interleavePlanes(std::span<const std::uint8_t> blue, std::span<const std::uint8_t> green,
                      std::span<const std::uint8_t> red, std::span<std::uint8_t> pixels,
                      Memory memory);

// Writes red, green, blue triples as blue, green, red. Both spans have the same size, a multiple of
// three.
void reverseTriples(std::span<const std::uint8_t> triples, std::span<std::uint8_t> pixels,
                    Memory memory);

// Writes the bytes as they are. Both spans have the same size.
void copyBytes(std::span<const std::uint8_t> bytes, std::span<std::uint8_t> pixels, Memory memory);

// The bytes of a file as numbers.
[[nodiscard]] inline std::span<const std::uint8_t> asNumbers(std::span<const std::byte> bytes)
{
    return {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()};
}

} // namespace formats
