#pragma once

class cpvSlider;

namespace widgets {

// Lets screen readers read and set sliders by their values. Further calls do nothing.
void installSliderAccessibility();

// Tells screen readers that the value has changed.
void announceSliderValue(cpvSlider& slider);

} // namespace widgets
