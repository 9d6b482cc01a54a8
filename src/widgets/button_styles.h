#pragma once

#include "widgets/button_palette.h"

namespace widgets {

class ButtonSurface;

constexpr int kFirstButtonType = 1;
constexpr int kLastButtonType = 14;

// Types that their drawing treats apart.
constexpr int kGradientType = 3;     // scales blue in its lightest tone
constexpr int kRoundedFrameType = 4; // embosses disabled captions darkly
constexpr int kLiftingType = 9;      // lifts its picture under the pointer
constexpr int kTransparentType = 11; // shows what lies behind it
constexpr int kOvalType = 13;

enum class ButtonState { Normal = 0, Disabled = 1, Pressed = 2 };

// What the frame of a button depends on beside its type.
struct FrameLook {
    ButtonPalette palette;
    ButtonState state = ButtonState::Normal;
    bool isOver = false;   // the pointer is over it
    bool isChosen = false; // has the focus, or is its window's default button
};

// Draws everything of a button but caption, pictures and focus rectangle on a surface that is
// already cleared with the face colour. An unknown type draws nothing.
void drawButtonFrame(int type, const FrameLook& look, const ButtonSurface& surface);

} // namespace widgets
