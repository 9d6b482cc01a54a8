#pragma once

#include "base/colours.h"

#include <string>

namespace base {

// "0A00FF": red, green and blue as web pages write them. Not for colours of the system.
std::string webColour(Colour colour);

} // namespace base
