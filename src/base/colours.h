#pragma once

#include <cstdint>

namespace base {

// A colour number as settings and properties hold it: red in the lowest byte, then green and blue.
// A number with the highest bit set names an entry of the system colours in its low byte.
using Colour = std::uint32_t;

constexpr Colour rgb(unsigned red, unsigned green, unsigned blue)
{
    return (red & 0xFFU) | ((green & 0xFFU) << 8U) | ((blue & 0xFFU) << 16U);
}

constexpr unsigned redOf(Colour colour)
{
    return colour & 0xFFU;
}

constexpr unsigned greenOf(Colour colour)
{
    return (colour >> 8U) & 0xFFU;
}

constexpr unsigned blueOf(Colour colour)
{
    return (colour >> 16U) & 0xFFU;
}

constexpr Colour systemColour(unsigned index)
{
    return 0x80000000U | index;
}

// The colour with a system colour replaced by its value. The table is fixed, because what the
// program draws itself doesn't follow the desktop's theme; an unknown index is black.
Colour translated(Colour colour);

} // namespace base
