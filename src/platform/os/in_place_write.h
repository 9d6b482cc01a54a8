#pragma once

#include <string>

namespace platform {

// Writes all bytes of an open file over those of another one, which keeps its owner, its rights and
// its name. The old bytes lie in the program's folder meanwhile. When it fails they are put back;
// where even that fails the copy of them stays there, under the file's name with ".before-save".
// Used inside this folder only.
[[nodiscard]] bool writeInPlace(int source, const std::string& target);

} // namespace platform
