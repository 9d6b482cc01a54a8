#include "widgets/button_palette.h"

#include <algorithm>

namespace {

constexpr int kLighterShift = 48;
constexpr int kBlueScale = 192;
constexpr int kFocusLightening = 176;

int channel(unsigned value)
{
    return static_cast<int>(value);
}

base::Colour packed(int red, int green, int blue)
{
    const auto kept = [](int value) { return static_cast<unsigned>(std::clamp(value, 0, 255)); };
    return base::rgb(kept(red), kept(green), kept(blue));
}

} // namespace

base::Colour ShiftColor(base::Colour colour, int delta, bool scaleBlue, bool softBevel)
{
    const int shift = softBevel ? delta / 2 : delta;
    const int blue = channel(base::blueOf(colour));
    return packed(channel(base::redOf(colour)) + shift, channel(base::greenOf(colour)) + shift,
                  blue + (scaleBlue ? blue * shift / kBlueScale : shift));
}

base::Colour LightenColor(base::Colour colour, int amount)
{
    const auto lightened = [amount](unsigned value) {
        return channel(value) * (255 - amount) / 255 + amount;
    };
    return packed(lightened(base::redOf(colour)), lightened(base::greenOf(colour)),
                  lightened(base::blueOf(colour)));
}

namespace widgets {

namespace {

void useSystemTones(ButtonPalette& palette)
{
    palette.Face = base::translated(base::systemColour(15));
    palette.FaceOver = palette.Face;
    palette.Shadow = base::translated(base::systemColour(16));
    palette.Hilight = base::translated(base::systemColour(22));
    palette.DarkShadow = base::translated(base::systemColour(21));
    palette.White = base::translated(base::systemColour(20));
    palette.Text = base::translated(base::systemColour(18));
    palette.TextOver = palette.Text;
}

void useSystemFocus(ButtonPalette& palette)
{
    palette.Focus = base::translated(base::systemColour(13));
    palette.FocusLight = LightenColor(palette.Focus, kFocusLightening);
}

void useFixedTones(ButtonPalette& palette)
{
    palette.Face = 0xC0C0C0;
    palette.FaceOver = 0xC0C0C0;
    palette.Shadow = 0x808080;
    palette.Hilight = 0xDFDFDF;
    palette.DarkShadow = 0x000000;
    palette.White = 0xFFFFFF;
    palette.Text = 0x000000;
    palette.TextOver = 0x000000;
    palette.Focus = 0x800000;
    palette.FocusLight = 0xD1ADAD;
}

void shiftTonesFromFace(ButtonPalette& palette)
{
    palette.Shadow = palette.shifted(palette.Face, -64);
    palette.Hilight = palette.shifted(palette.Face, 31);
    palette.White = palette.shifted(palette.Face, 47);
    palette.DarkShadow = palette.shifted(palette.Face, -192);
}

void useCustomTones(ButtonPalette& palette, const PaletteSource& source)
{
    palette.Face = base::translated(source.BackColor);
    palette.FaceOver = base::translated(source.BackOver);
    palette.Text = base::translated(source.ForeColor);
    palette.TextOver = base::translated(source.ForeOver);
    shiftTonesFromFace(palette);
    palette.Focus = palette.shifted(palette.Face, -128);
    palette.FocusLight = palette.Face;
}

void useContainerTones(ButtonPalette& palette, const PaletteSource& source)
{
    palette.Face = base::translated(source.containerBack);
    palette.FaceOver = palette.Face;
    palette.Text = base::translated(source.containerFore);
    palette.TextOver = palette.Text;
    shiftTonesFromFace(palette);
    useSystemFocus(palette);
}

} // namespace

base::Colour ButtonPalette::shifted(base::Colour colour, int delta) const
{
    return ShiftColor(colour, delta, false, softBevel);
}

ButtonPalette ButtonPalette::withFaceOver() const
{
    ButtonPalette over = *this;
    over.Face = FaceOver;
    over.Lighter = ShiftColor(over.Face, kLighterShift, scalesBlue, softBevel);
    return over;
}

ButtonPalette derivePalette(const PaletteSource& source)
{
    ButtonPalette palette;
    palette.softBevel = source.softBevel;
    palette.scalesBlue = source.scalesBlue;
    switch (static_cast<ColourScheme>(source.scheme)) {
    case ColourScheme::Custom:
        useCustomTones(palette, source);
        break;
    case ColourScheme::FixedStandard:
        useFixedTones(palette);
        break;
    case ColourScheme::Container:
        useContainerTones(palette, source);
        break;
    default:
        useSystemTones(palette);
        useSystemFocus(palette);
    }
    palette.Mask = base::translated(source.MaskColor);
    palette.Lighter =
        ShiftColor(palette.Face, kLighterShift, palette.scalesBlue, palette.softBevel);
    return palette;
}

base::Colour mixed(base::Colour first, base::Colour second)
{
    return blended(first, second, 1, 2);
}

base::Colour blended(base::Colour from, base::Colour to, int step, int steps)
{
    const auto between = [step, steps](unsigned first, unsigned last) {
        return channel(first) + (channel(last) - channel(first)) * step / std::max(1, steps);
    };
    return packed(between(base::redOf(from), base::redOf(to)),
                  between(base::greenOf(from), base::greenOf(to)),
                  between(base::blueOf(from), base::blueOf(to)));
}

} // namespace widgets
