#pragma once

#include <QtCore/qnamespace.h>

class QKeyEvent;

// Key codes, button numbers and shift states as the events of controls report them.
namespace widgets {

enum ShiftBit { kShiftKey = 1, kControlKey = 2, kAltKey = 4 };
enum ButtonBit { kLeftButton = 1, kRightButton = 2, kMiddleButton = 4 };

// The virtual key number: 65 for A, 113 for F2, 107 for the keypad's plus; 0 for a key without one.
// Letters keep their number under a keyboard layout of another script.
[[nodiscard]] int virtualKey(const QKeyEvent& event);

// Sums of the bits above.
[[nodiscard]] int shiftState(Qt::KeyboardModifiers modifiers);
[[nodiscard]] int buttonNumbers(Qt::MouseButtons buttons);

} // namespace widgets
