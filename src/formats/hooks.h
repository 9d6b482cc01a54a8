#pragma once

#include <functional>

namespace formats {

// What a reader tells its user while it works. An empty hook is skipped.
struct Hooks {
    // The text of a message box.
    std::function<void(const char* text)> report;

    // The fraction done, from 0 to 1. It comes after each row of pixels; the last one is 1.
    std::function<void(double fraction)> progress;
};

// Replaces both hooks for all files read from now on.
void setHooks(Hooks hooks);

[[nodiscard]] const Hooks& hooks();

} // namespace formats
