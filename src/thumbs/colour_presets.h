#pragma once

#include "base/colours.h"

#include <array>
#include <cstdint>

namespace thumbs {

// Five colours that go together.
struct ColourPreset {
    base::Colour frame;
    base::Colour page;
    base::Colour tile;
    base::Colour border;
    base::Colour select;
};

// Presets 1 to 6, in order.
inline constexpr std::array kColourPresets{
    ColourPreset{0xFFFFFF, 0xFFFFFF, 0x000000, 0x3A4228, 0x00FFFF},
    ColourPreset{0xFFFFFF, 0xFFFFFF, 0x575757, 0x999999, 0x00FF00},
    ColourPreset{0xFFFFFF, 0xFFFFFF, 0xC0C0C0, 0x404040, 0x00FF00},
    ColourPreset{0xFFFFFF, 0xFFFFFF, 0xE0E0E0, 0xFFFFFF, 0x0000FF},
    ColourPreset{0xFFFFFF, 0xFFFFFF, 0xE0E0E0, 0xC0C0C0, 0x000000},
    ColourPreset{0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xC0C0C0, 0x000000},
};

// Null for a number that is no preset.
[[nodiscard]] constexpr const ColourPreset* colourPreset(std::int32_t number)
{
    const bool known = number >= 1 && number <= static_cast<std::int32_t>(kColourPresets.size());
    return known ? &kColourPresets[static_cast<std::size_t>(number) - 1] : nullptr;
}

} // namespace thumbs
