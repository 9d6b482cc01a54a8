#include "base/web_colour.h"

#include <string_view>

namespace base {

namespace {

std::string twoDigits(unsigned channel)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    return {kDigits[channel >> 4U], kDigits[channel & 0xFU]};
}

} // namespace

std::string webColour(Colour colour)
{
    return twoDigits(redOf(colour)) + twoDigits(greenOf(colour)) + twoDigits(blueOf(colour));
}

} // namespace base
