#include "widgets/key_codes.h"

#include <QKeyEvent>
#include <array>
#include <string_view>

namespace widgets {

namespace {

struct KeyRow {
    int key;
    int number;
};

constexpr std::array kNamedKeys = {
    KeyRow{Qt::Key_Backspace, 8}, KeyRow{Qt::Key_Tab, 9},          KeyRow{Qt::Key_Backtab, 9},
    KeyRow{Qt::Key_Return, 13},   KeyRow{Qt::Key_Enter, 13},       KeyRow{Qt::Key_Shift, 16},
    KeyRow{Qt::Key_Control, 17},  KeyRow{Qt::Key_Alt, 18},         KeyRow{Qt::Key_Pause, 19},
    KeyRow{Qt::Key_CapsLock, 20}, KeyRow{Qt::Key_Escape, 27},      KeyRow{Qt::Key_Space, 32},
    KeyRow{Qt::Key_PageUp, 33},   KeyRow{Qt::Key_PageDown, 34},    KeyRow{Qt::Key_End, 35},
    KeyRow{Qt::Key_Home, 36},     KeyRow{Qt::Key_Left, 37},        KeyRow{Qt::Key_Up, 38},
    KeyRow{Qt::Key_Right, 39},    KeyRow{Qt::Key_Down, 40},        KeyRow{Qt::Key_Print, 44},
    KeyRow{Qt::Key_Insert, 45},   KeyRow{Qt::Key_Delete, 46},      KeyRow{Qt::Key_NumLock, 144},
    KeyRow{Qt::Key_Menu, 93},     KeyRow{Qt::Key_ScrollLock, 145}, KeyRow{Qt::Key_Plus, 187},
    KeyRow{Qt::Key_Equal, 187},   KeyRow{Qt::Key_Comma, 188},      KeyRow{Qt::Key_Minus, 189},
    KeyRow{Qt::Key_Period, 190},
};

constexpr std::array kKeypadKeys = {
    KeyRow{Qt::Key_Asterisk, 106}, KeyRow{Qt::Key_Plus, 107},  KeyRow{Qt::Key_Minus, 109},
    KeyRow{Qt::Key_Period, 110},   KeyRow{Qt::Key_Comma, 110}, KeyRow{Qt::Key_Slash, 111},
};

template<std::size_t count> int lookUp(const std::array<KeyRow, count>& table, int key)
{
    for (const KeyRow& row : table) {
        if (row.key == key) {
            return row.number;
        }
    }
    return 0;
}

// The three rows of letters by the place of the key on the keyboard, as X11 and Wayland number it.
struct LetterRow {
    quint32 firstScanCode;
    std::string_view letters;
};
constexpr std::array kLetterRows = {
    LetterRow{24, "QWERTYUIOP"},
    LetterRow{38, "ASDFGHJKL"},
    LetterRow{52, "ZXCVBNM"},
};

int letterAtPlace(quint32 scanCode)
{
    for (const LetterRow& row : kLetterRows) {
        if (scanCode >= row.firstScanCode && scanCode < row.firstScanCode + row.letters.size()) {
            return row.letters[scanCode - row.firstScanCode];
        }
    }
    return 0;
}

bool isLetterOfAnotherScript(int key)
{
    return key > 0xFF && key < Qt::Key_Escape && QChar::isLetter(static_cast<char32_t>(key));
}

} // namespace

int virtualKey(const QKeyEvent& event)
{
    const int key = event.key();
    if (event.modifiers().testFlag(Qt::KeypadModifier)) {
        if (key >= Qt::Key_0 && key <= Qt::Key_9) {
            return key - Qt::Key_0 + 96;
        }
        if (const int number = lookUp(kKeypadKeys, key)) {
            return number;
        }
    }
    if ((key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z)) {
        return key;
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24) {
        return key - Qt::Key_F1 + 112;
    }
    if (isLetterOfAnotherScript(key)) {
        return letterAtPlace(event.nativeScanCode());
    }
    return lookUp(kNamedKeys, key);
}

int shiftState(Qt::KeyboardModifiers modifiers)
{
    return (modifiers.testFlag(Qt::ShiftModifier) ? kShiftKey : 0) |
           (modifiers.testFlag(Qt::ControlModifier) ? kControlKey : 0) |
           (modifiers.testFlag(Qt::AltModifier) ? kAltKey : 0);
}

int buttonNumbers(Qt::MouseButtons buttons)
{
    return (buttons.testFlag(Qt::LeftButton) ? kLeftButton : 0) |
           (buttons.testFlag(Qt::RightButton) ? kRightButton : 0) |
           (buttons.testFlag(Qt::MiddleButton) ? kMiddleButton : 0);
}

} // namespace widgets
