#pragma once

#include "base/colours.h"

// Each channel of the colour plus delta, kept between 0 and 255. With softBevel half of delta is
// used, halves dropped. With scaleBlue the blue channel moves in proportion to its own value.
[[nodiscard]] base::Colour ShiftColor(base::Colour colour, int delta, bool scaleBlue = false,
                                      bool softBevel = false);

// Each channel drawn towards 255 by amount (0 to 255).
[[nodiscard]] base::Colour LightenColor(base::Colour colour, int amount);

namespace widgets {

// Where a button's colours come from; the numbers are those of the property ColorScheme, of which
// any other number means System too.
enum class ColourScheme { Default = 0, System = 1, Custom = 2, FixedStandard = 3, Container = 4 };

// What a scheme starts from.
struct PaletteSource {
    int scheme = 1;
    bool softBevel = false;
    bool scalesBlue = false; // for the lightest tone; only one style asks for it
    base::Colour BackColor = base::systemColour(15);
    base::Colour BackOver = base::systemColour(15);
    base::Colour ForeColor = base::systemColour(18);
    base::Colour ForeOver = base::systemColour(18);
    base::Colour MaskColor = 0xC0C0C0;
    base::Colour containerBack = base::systemColour(15);
    base::Colour containerFore = base::systemColour(18);
};

// The colours that a button is drawn with, all of them real ones.
struct ButtonPalette {
    base::Colour Face = 0;
    base::Colour Hilight = 0;
    base::Colour White = 0;
    base::Colour Shadow = 0;
    base::Colour DarkShadow = 0;
    base::Colour Text = 0;
    base::Colour TextOver = 0;
    base::Colour FaceOver = 0;
    base::Colour Focus = 0;
    base::Colour FocusLight = 0;
    base::Colour Mask = 0;
    base::Colour Lighter = 0;
    bool softBevel = false;
    bool scalesBlue = false;

    // A colour shifted as this palette's own tones are.
    [[nodiscard]] base::Colour shifted(base::Colour colour, int delta) const;

    // The same palette with FaceOver in the place of Face.
    [[nodiscard]] ButtonPalette withFaceOver() const;
};

[[nodiscard]] ButtonPalette derivePalette(const PaletteSource& source);

// The colour half-way between two.
[[nodiscard]] base::Colour mixed(base::Colour first, base::Colour second);

// The colour at a step of a row of steps that leads from one colour (step 0) to another.
[[nodiscard]] base::Colour blended(base::Colour from, base::Colour to, int step, int steps);

} // namespace widgets
