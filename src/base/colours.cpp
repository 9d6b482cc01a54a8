#include "base/colours.h"

#include <array>

namespace base {

namespace {

struct SystemColour {
    unsigned index;
    Colour value;
};

constexpr std::array kSystemColours{
    SystemColour{8, rgb(0x00, 0x00, 0x00)},  // text in windows
    SystemColour{13, rgb(0x00, 0x00, 0x80)}, // highlight
    SystemColour{15, rgb(0xC0, 0xC0, 0xC0)}, // button face
    SystemColour{16, rgb(0x80, 0x80, 0x80)}, // button shadow
    SystemColour{18, rgb(0x00, 0x00, 0x00)}, // button text
    SystemColour{20, rgb(0xFF, 0xFF, 0xFF)}, // button highlight
    SystemColour{21, rgb(0x00, 0x00, 0x00)}, // dark shadow
    SystemColour{22, rgb(0xDF, 0xDF, 0xDF)}, // light edge
};

} // namespace

Colour translated(Colour colour)
{
    if ((colour & 0x80000000U) == 0) {
        return colour & 0xFFFFFFU;
    }
    for (const SystemColour& entry : kSystemColours) {
        if (entry.index == (colour & 0xFFU)) {
            return entry.value;
        }
    }
    return 0;
}

} // namespace base
