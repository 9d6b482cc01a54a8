#pragma once

#include <chrono>

class QObject;

namespace platform {

// Lets pending events run once, at the points where long work says so. False means stop: the
// program is closing, or the guard was destroyed meanwhile (null: no guard). After a pump, whatever
// a handler may have changed has to be looked at again.
[[nodiscard]] bool pump(const QObject* guard = nullptr);

// The same for whoever has nothing to do meanwhile: sleeps until there are events, or so long.
[[nodiscard]] bool pumpWithin(std::chrono::milliseconds longest, const QObject* guard = nullptr);

// From here on pump() says stop and modal windows end. Set once, when the main window unloads.
void beginClosing();
[[nodiscard]] bool isClosing();

// Undoes beginClosing() (tests run several lives in one process).
void resetClosing();

} // namespace platform
