#pragma once

#include "byte_sink.h"

namespace tools {

// The packing of PSD and IFF pictures: a control byte below 128 for as many bytes plus one as they
// are, one above 128 for a byte that repeats 257 minus it times.
[[nodiscard]] Bytes packedBits(std::span<const std::uint8_t> row);

// The packing of PCX pictures: a byte with both top bits set counts how often the next one stands.
[[nodiscard]] Bytes packedPcx(std::span<const std::uint8_t> row);

} // namespace tools
