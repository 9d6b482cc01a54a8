#pragma once

namespace core {

// Opens the delivered book of help with the program that the desktop has for it.
void openHelp();

} // namespace core
