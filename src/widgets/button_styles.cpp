#include "widgets/button_styles.h"

#include "widgets/button_surface.h"

#include <algorithm>
#include <array>

namespace widgets {

namespace {

bool isPressed(const FrameLook& look)
{
    return look.state == ButtonState::Pressed;
}

bool isDisabled(const FrameLook& look)
{
    return look.state == ButtonState::Disabled;
}

void drawOutline(const ButtonSurface& s, base::Colour colour)
{
    s.FillBox(0, 0, s.width(), s.height(), colour, true);
}

// The four pixels next to the corners on the inside.
void drawInnerDots(const ButtonSurface& s, base::Colour colour)
{
    for (const int y : {1, s.height() - 2}) {
        s.SetDot(1, y, colour);
        s.SetDot(s.width() - 2, y, colour);
    }
}

void drawOutlinedBevel(const FrameLook& look, const ButtonSurface& s)
{
    const ButtonPalette& p = look.palette;
    const base::Colour light = isPressed(look) ? p.Shadow : p.White;
    const base::Colour dark = isPressed(look) ? p.White : p.Shadow;
    s.DrawBevel(light, dark, light, dark, -1);
    drawOutline(s, p.DarkShadow);
}

void drawDoubleBevel(const FrameLook& look, const ButtonSurface& s)
{
    const ButtonPalette& p = look.palette;
    if (isDisabled(look)) {
        s.DrawBevel(p.White, p.DarkShadow, p.Hilight, p.Shadow, 0);
    } else if (isPressed(look) && look.isChosen) {
        drawOutline(s, p.DarkShadow);
        s.FillBox(1, 1, s.width() - 2, s.height() - 2, p.Shadow, true);
    } else if (isPressed(look)) {
        s.DrawBevel(p.DarkShadow, p.White, p.Shadow, p.Hilight, -1);
    } else if (look.isChosen) {
        drawOutline(s, p.DarkShadow);
        s.DrawBevel(p.White, p.DarkShadow, p.Hilight, p.Shadow, 0);
    } else {
        s.DrawBevel(p.White, p.DarkShadow, p.Hilight, p.Shadow, -1);
    }
}

void drawGradientRows(const ButtonPalette& p, const ButtonSurface& s, base::Colour lightest)
{
    const int rows = s.height();
    for (int row = 1; row <= rows; ++row) {
        const base::Colour tone = p.shifted(lightest, -row * 25 / rows);
        s.DrawLine(0, rows - row, s.width() - 1, rows - row, tone);
    }
}

void drawGradientHollow(const ButtonPalette& p, const ButtonSurface& s, base::Colour base)
{
    const int right = s.width() - 2;
    const int bottom = s.height() - 2;
    s.DrawLine(1, bottom, right, bottom, p.shifted(base, 16));
    s.DrawLine(1, bottom - 1, right, bottom - 1, p.shifted(base, 10));
    s.DrawLine(right, 1, right, bottom, p.shifted(base, 5));
    s.DrawLine(right - 1, 1, right - 1, bottom - 1, base);
    s.DrawLine(1, 1, right, 1, p.shifted(base, -32));
    s.DrawLine(1, 2, right, 2, p.shifted(base, -24));
    s.DrawLine(1, 1, 1, bottom, p.shifted(base, -32));
    s.DrawLine(2, 2, 2, bottom, p.shifted(base, -22));
}

void drawGradient(const FrameLook& look, const ButtonSurface& s)
{
    constexpr base::Colour kOutline = 0x733C00;
    constexpr base::Colour kCornerDot = 0x7B4D10;
    const ButtonPalette& p = look.palette;
    if (isDisabled(look)) {
        drawOutline(s, p.shifted(p.Shadow, 32));
        drawInnerDots(s, p.shifted(p.Shadow, 48));
        return;
    }
    if (isPressed(look)) {
        const base::Colour base = p.shifted(p.Lighter, -32);
        drawGradientRows(p, s, base);
        drawGradientHollow(p, s, base);
    } else {
        drawGradientRows(p, s, p.Lighter);
    }
    drawOutline(s, kOutline);
    drawInnerDots(s, kCornerDot);
}

void drawRoundedLines(const ButtonPalette& p, const ButtonSurface& s)
{
    const int right = s.width() - 2;
    const int bottom = s.height() - 2;
    s.DrawLine(2, 1, right - 1, 1, p.Face);
    s.DrawLine(1, 2, 1, bottom - 1, p.Face);
    s.DrawLine(2, 2, right - 2, 2, p.White);
    s.DrawLine(2, 3, 2, bottom - 2, p.White);
    s.DrawLine(2, bottom, right - 1, bottom, p.Shadow);
    s.DrawLine(right, 2, right, bottom - 1, p.Shadow);
    s.DrawLine(3, bottom - 1, right - 1, bottom - 1, p.Face);
    s.DrawLine(right - 1, 3, right - 1, bottom - 2, p.Face);
}

void drawRoundedHollow(const ButtonPalette& p, const ButtonSurface& s)
{
    const int right = s.width() - 2;
    const int bottom = s.height() - 2;
    s.DrawLine(2, 1, right - 1, 1, p.shifted(p.Shadow, -64));
    s.DrawLine(1, 2, 1, bottom - 1, p.shifted(p.Shadow, -64));
    s.DrawLine(2, 2, right - 1, 2, p.shifted(p.Shadow, -32));
    s.DrawLine(2, 3, 2, bottom - 1, p.shifted(p.Shadow, -32));
}

void drawRoundedFrame(const FrameLook& look, const ButtonSurface& s)
{
    const ButtonPalette& p = look.palette;
    const base::Colour inside = isPressed(look) ? p.shifted(p.Shadow, -16) : p.Hilight;
    s.FillBox(1, 1, s.width() - 2, s.height() - 2, inside);
    drawOutline(s, p.DarkShadow);
    drawInnerDots(s, p.DarkShadow);
    if (isPressed(look)) {
        drawRoundedHollow(p, s);
    } else if (!isDisabled(look)) {
        drawRoundedLines(p, s);
    }
}

// A short upright mark next to the right edge, in the middle of the height: clear of the picture,
// also of one that moves when the button is pressed.
void drawMarker(const ButtonSurface& s)
{
    constexpr base::Colour kMarker = 0xCC9999;
    constexpr int kTallest = 10;
    const int tall = std::min(kTallest, s.height() - 8);
    s.FillBox(s.width() - 4, (s.height() - tall) / 2, 2, tall, kMarker);
}

// Two rectangles of one size, one pixel apart, look engraved.
void drawEngraved(const FrameLook& look, const ButtonSurface& s)
{
    const ButtonPalette& p = look.palette;
    const int w = s.width();
    const int h = s.height();
    const base::Colour edge = p.shifted(p.Shadow, -26);
    if (isPressed(look)) {
        s.FillBox(1, 1, w - 2, h - 2, p.shifted(p.Shadow, 16));
        s.FillBox(0, 0, w - 1, h - 1, edge, true);
        s.DrawLine(w - 1, 0, w - 1, h - 1, p.White);
        s.DrawLine(0, h - 1, w - 1, h - 1, p.White);
    } else {
        s.FillBox(1, 1, w - 2, h - 2, p.shifted(p.Face, 12));
        s.FillBox(1, 1, w - 1, h - 1, p.White, true);
        s.FillBox(0, 0, w - 1, h - 1, edge, true);
    }
    drawMarker(s);
}

void drawThickBevel(const FrameLook& look, const ButtonSurface& s)
{
    const ButtonPalette& p = look.palette;
    const base::Colour raised = p.shifted(p.Hilight, 8);
    const base::Colour light = isPressed(look) ? p.Shadow : raised;
    const base::Colour dark = isPressed(look) ? raised : p.Shadow;
    s.DrawBevel(light, dark, light, dark, 0);
}

void drawRaisedEdge(const FrameLook& look, const ButtonSurface& s)
{
    if (look.isOver && look.state == ButtonState::Normal) {
        const ButtonPalette& p = look.palette;
        s.DrawBevel(p.White, p.Shadow, p.White, p.Shadow, -1, BevelRings::Outer);
    }
}

void drawFlat(const FrameLook& look, const ButtonSurface& s)
{
    const ButtonPalette& p = look.palette;
    if (isPressed(look)) {
        s.DrawBevel(p.DarkShadow, p.White, p.Shadow, p.Hilight, -1);
        s.DrawBevel(p.Shadow, p.White, p.Shadow, p.White, -1, BevelRings::Outer);
    }
    drawRaisedEdge(look, s);
}

void drawTinted(const FrameLook& look, const ButtonSurface& s)
{
    constexpr int kPressedLightening = 128;
    const ButtonPalette& p = look.palette;
    const int w = s.width() - 2;
    const int h = s.height() - 2;
    if (isPressed(look)) {
        const base::Colour tint = LightenColor(p.Focus, kPressedLightening);
        s.FillBox(1, 1, w, h, mixed(p.shifted(p.FocusLight, -32), tint));
        drawOutline(s, p.Focus);
    } else if (look.isOver && !isDisabled(look)) {
        s.FillBox(1, 1, w, h, p.FocusLight);
        drawOutline(s, p.Focus);
    }
}

void drawNothing(const FrameLook& /*look*/, const ButtonSurface& /*surface*/) {}

void drawOvalFrame(const FrameLook& look, const ButtonSurface& s)
{
    const ButtonPalette& p = look.palette;
    const base::Colour pen = isPressed(look) ? p.DarkShadow : p.Shadow;
    const base::Colour fill = isPressed(look) ? p.shifted(p.Face, -32) : p.Face;
    s.DrawOval(0, 0, s.width(), s.height(), pen, fill);
}

void drawGlossy(const FrameLook& look, const ButtonSurface& s)
{
    const ButtonPalette& p = look.palette;
    const int w = s.width();
    const int h = s.height();
    const base::Colour box = p.shifted(p.Face, -9);
    if (isPressed(look)) {
        s.FillBox(1, 1, w - 2, h - 2, box);
        drawOutline(s, p.shifted(p.Shadow, -48));
        s.DrawLine(1, h - 2, w - 2, h - 2, p.White);
        s.DrawLine(w - 2, 1, w - 2, h - 2, p.White);
        return;
    }
    drawOutline(s, p.shifted(p.Shadow, -50));
    s.FillBox(1, 1, w - 2, h - 2, box);
    s.FillBox(1, 1, w - 2, 2, p.White);
    s.FillBox(1, 1, 2, h - 2, p.White);
    for (int row = 3; row < h - 1; ++row) {
        s.DrawLine(3, row, w - 2, row, blended(p.White, box, row - 2, h - 4));
    }
}

using FrameDrawer = void (*)(const FrameLook&, const ButtonSurface&);

// By type, from 1.
constexpr std::array<FrameDrawer, kLastButtonType> kFrameDrawers{
    drawOutlinedBevel, drawDoubleBevel, drawGradient,  drawRoundedFrame, drawEngraved,
    drawThickBevel,    drawFlat,        drawFlat,      drawTinted,       drawRaisedEdge,
    drawNothing,       drawFlat,        drawOvalFrame, drawGlossy,
};

} // namespace

void drawButtonFrame(int type, const FrameLook& look, const ButtonSurface& surface)
{
    if (type < kFirstButtonType || type > kLastButtonType) {
        return;
    }
    kFrameDrawers[static_cast<std::size_t>(type - kFirstButtonType)](look, surface);
}

} // namespace widgets
