#pragma once

// How a slider's values and the places of its knob belong together. Places are pixels of the knob's
// left or top edge from the left or top end of the control.
namespace widgets {

enum class SliderAxis { Horizontal = 0, Vertical = 1 };

struct SliderScale {
    int minimum = 0;
    int maximum = 10; // above minimum
    int travel = 0;   // length of the control less that of the knob
    SliderAxis axis = SliderAxis::Vertical;

    // Rounded to the nearest pixel, halves to the even one; the maximum of a vertical scale is on
    // top. A value outside the scale is at its end.
    [[nodiscard]] int knobPosition(int value) const;

    // Rounded to the nearest value, halves to the even one; a place may lie between two pixels.
    // Without travel it is the minimum.
    [[nodiscard]] int valueAt(double position) const;
};

} // namespace widgets
