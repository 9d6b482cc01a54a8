#pragma once

namespace scan_helper {

// Drivers print where they like. The descriptor of the answers becomes one that they don't know,
// which is given; what they print goes nowhere. -1 on failure.
[[nodiscard]] int keepAnswersApart();

// Bounds the memory of this process, writes no dump of a crash, and ends with the program that
// started it.
void limitProcess();

} // namespace scan_helper
