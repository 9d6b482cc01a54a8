#pragma once

#include <functional>

class QWidget;

namespace acquire {

// Freezes the screens and shows frmCapture, or frmGetColor, over them. A window of the program that
// stands in the way leaves the screen first: minimised it stays so, hidden it comes back when the
// other one has gone. Where nothing tells whether a window is minimised it is hidden as well until
// then. Where the screens can't be had, or a modal window opened meanwhile, it comes back at once.
// While one of the two is there or on its way, or a modal window is open, nothing happens.
enum class Leave { Minimised, Hidden };
void startCapture(QWidget* leaving = nullptr, Leave leave = Leave::Minimised);
void startColourPicker(QWidget* leaving = nullptr, Leave leave = Leave::Minimised);

// Minimises a window for later captures, which it then stays out of until its user turns to it
// again.
void keepOutOfCaptures(QWidget& window);

} // namespace acquire
