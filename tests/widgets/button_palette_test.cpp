#include "widgets/button_palette.h"

#include <gtest/gtest.h>

using widgets::ButtonPalette;
using widgets::derivePalette;
using widgets::PaletteSource;

TEST(ButtonPalette, ShiftsEachChannelAndStopsAtBothEnds)
{
    EXPECT_EQ(ShiftColor(base::rgb(10, 100, 200), 48), base::rgb(58, 148, 248));
    EXPECT_EQ(ShiftColor(base::rgb(10, 100, 230), 48), base::rgb(58, 148, 255));
    EXPECT_EQ(ShiftColor(base::rgb(10, 100, 200), -64), base::rgb(0, 36, 136));
    EXPECT_EQ(ShiftColor(0xFFFFFF, 1), 0xFFFFFFU);
}

TEST(ButtonPalette, HalvesShiftsForSoftBevelsTowardsZero)
{
    EXPECT_EQ(ShiftColor(base::rgb(100, 100, 100), 47, false, true), base::rgb(123, 123, 123));
    EXPECT_EQ(ShiftColor(base::rgb(100, 100, 100), -47, false, true), base::rgb(77, 77, 77));
}

TEST(ButtonPalette, ScalesBlueByItsOwnValue)
{
    EXPECT_EQ(ShiftColor(base::rgb(20, 30, 96), 48, true), base::rgb(68, 78, 96 + 24));
    EXPECT_EQ(ShiftColor(base::rgb(0, 0, 0), 48, true), base::rgb(48, 48, 0));
    EXPECT_EQ(ShiftColor(0xC0C0C0, 48, true), 0xF0F0F0U);
}

TEST(ButtonPalette, LightensTowardsWhite)
{
    EXPECT_EQ(LightenColor(base::rgb(0, 0, 128), 176), base::rgb(176, 176, 128 * 79 / 255 + 176));
    EXPECT_EQ(LightenColor(0x123456, 0), 0x123456U);
    EXPECT_EQ(LightenColor(0x123456, 255), 0xFFFFFFU);
}

TEST(ButtonPalette, TakesTheSystemsColoursForTheFirstSchemesAndUnknownOnes)
{
    for (const int scheme : {0, 1, 5, -3}) {
        PaletteSource source;
        source.scheme = scheme;
        const ButtonPalette palette = derivePalette(source);
        EXPECT_EQ(palette.Face, 0xC0C0C0U);
        EXPECT_EQ(palette.FaceOver, 0xC0C0C0U);
        EXPECT_EQ(palette.Shadow, 0x808080U);
        EXPECT_EQ(palette.Hilight, 0xDFDFDFU);
        EXPECT_EQ(palette.DarkShadow, 0U);
        EXPECT_EQ(palette.White, 0xFFFFFFU);
        EXPECT_EQ(palette.Text, 0U);
        EXPECT_EQ(palette.Focus, base::rgb(0, 0, 128));
        EXPECT_EQ(palette.FocusLight, LightenColor(base::rgb(0, 0, 128), 176));
        EXPECT_EQ(palette.Lighter, 0xF0F0F0U);
        EXPECT_EQ(palette.Mask, 0xC0C0C0U);
    }
}

TEST(ButtonPalette, ShiftsCustomTonesFromTheFace)
{
    PaletteSource source;
    source.scheme = 2;
    source.BackColor = 0xC0C0C0;
    source.BackOver = 0x102030;
    source.ForeColor = 0x010203;
    source.ForeOver = 0x040506;
    source.MaskColor = base::systemColour(20);
    const ButtonPalette palette = derivePalette(source);
    EXPECT_EQ(palette.Shadow, 0x808080U);
    EXPECT_EQ(palette.Hilight, 0xDFDFDFU);
    EXPECT_EQ(palette.White, 0xEFEFEFU);
    EXPECT_EQ(palette.DarkShadow, 0x000000U);
    EXPECT_EQ(palette.Focus, 0x404040U);
    EXPECT_EQ(palette.FocusLight, 0xC0C0C0U);
    EXPECT_EQ(palette.FaceOver, 0x102030U);
    EXPECT_EQ(palette.Text, 0x010203U);
    EXPECT_EQ(palette.TextOver, 0x040506U);
    EXPECT_EQ(palette.Mask, 0xFFFFFFU);
    EXPECT_EQ(palette.withFaceOver().Face, 0x102030U);
    EXPECT_EQ(palette.withFaceOver().Shadow, 0x808080U);
}

TEST(ButtonPalette, LosesContrastWithSoftBevelsOnly)
{
    PaletteSource source;
    source.scheme = 2;
    source.BackColor = 0xC0C0C0;
    source.softBevel = true;
    const ButtonPalette palette = derivePalette(source);
    EXPECT_EQ(palette.Face, 0xC0C0C0U);
    EXPECT_EQ(palette.Shadow, 0xA0A0A0U);
    EXPECT_EQ(palette.Hilight, 0xCFCFCFU);
    EXPECT_EQ(palette.White, 0xD7D7D7U);
    EXPECT_EQ(palette.DarkShadow, 0x606060U);
}

TEST(ButtonPalette, HoldsTheFixedStandardColours)
{
    PaletteSource source;
    source.scheme = 3;
    source.BackColor = 0x112233;
    const ButtonPalette palette = derivePalette(source);
    EXPECT_EQ(palette.Face, 0xC0C0C0U);
    EXPECT_EQ(palette.FaceOver, 0xC0C0C0U);
    EXPECT_EQ(palette.Shadow, 0x808080U);
    EXPECT_EQ(palette.Hilight, 0xDFDFDFU);
    EXPECT_EQ(palette.DarkShadow, 0x000000U);
    EXPECT_EQ(palette.White, 0xFFFFFFU);
    EXPECT_EQ(palette.Text, 0x000000U);
    EXPECT_EQ(palette.TextOver, 0x000000U);
    EXPECT_EQ(palette.Focus, 0x800000U);
    EXPECT_EQ(palette.FocusLight, 0xD1ADADU);
}

TEST(ButtonPalette, FollowsItsContainer)
{
    PaletteSource source;
    source.scheme = 4;
    source.containerBack = 0xA0B0C0;
    source.containerFore = 0x203040;
    const ButtonPalette palette = derivePalette(source);
    EXPECT_EQ(palette.Face, 0xA0B0C0U);
    EXPECT_EQ(palette.FaceOver, 0xA0B0C0U);
    EXPECT_EQ(palette.Text, 0x203040U);
    EXPECT_EQ(palette.TextOver, 0x203040U);
    EXPECT_EQ(palette.Shadow, 0x607080U);
    EXPECT_EQ(palette.Focus, base::rgb(0, 0, 128));
}

TEST(ButtonPalette, BlendsInWholeSteps)
{
    EXPECT_EQ(widgets::mixed(0x000000, 0x808080), 0x404040U);
    EXPECT_EQ(widgets::blended(0xFFFFFF, 0x000000, 0, 10), 0xFFFFFFU);
    EXPECT_EQ(widgets::blended(0xFFFFFF, 0x000000, 10, 10), 0x000000U);
}
