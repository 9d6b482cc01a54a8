#include "frame_mouldings.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace tools {

namespace {

// A half-round rod along the frame, from 0 at its sides to 1 in its middle.
double rod(double across, double middle, double halfWidth)
{
    const double from = (across - middle) / halfWidth;
    return std::abs(from) < 1 ? std::sqrt(1 - from * from) : 0;
}

// 1 between two places, with soft ends.
double band(double across, double from, double to, double softness = 0.012)
{
    return smooth(from - softness, from + softness, across) *
           (1 - smooth(to - softness, to + softness, across));
}

// Cloudiness that comes again after one thickness: towards the end it turns into what lies before
// the beginning.
double recurring(double across, double along, double stretchAcross, double stretchAlong,
                 std::uint32_t seed)
{
    constexpr int kOctaves = 4;
    const double here = cloudiness(across * stretchAcross, along * stretchAlong, kOctaves, seed);
    const double before =
        cloudiness(across * stretchAcross, (along - 1) * stretchAlong, kOctaves, seed);
    return std::lerp(here, before, smooth(0.5, 1, along));
}

// Long fibres with darker lines between them, from 0 to 1.
double fibres(double across, double along, std::uint32_t seed)
{
    const double bent = across + 0.03 * recurring(across, along, 3, 2, seed + 50);
    const double broad = recurring(bent, along, 9, 0.4, seed);
    const double fine = recurring(bent, along, 40, 1.4, seed + 9);
    return std::clamp(0.62 * smooth(0.25, 0.75, broad) + 0.38 * smooth(0.3, 0.7, fine), 0.0, 1.0);
}

FrameSurface oak(double across, double along)
{
    static constexpr std::array<Stop, 4> kWood{
        {{0, 0xE0B878}, {0.45, 0xC9975A}, {0.8, 0xA8733A}, {1, 0x8A5A2B}}};
    const double grain = fibres(across, along, 11);
    const double profile = 0.16 * rod(across, 0.42, 0.46) + 0.07 * rod(across, 0.93, 0.075);
    return {profile - 0.004 * grain, ramp(kWood, grain), 0.12};
}

FrameSurface walnut(double across, double along)
{
    static constexpr std::array<Stop, 4> kWood{
        {{0, 0x7A4E30}, {0.4, 0x5B3720}, {0.8, 0x3F2414}, {1, 0x2A160B}}};
    const double grain = fibres(across, along, 23);
    const double gilt = band(across, 0.85, 0.985);
    const double profile = 0.13 * smooth(0, 0.22, across) - 0.1 * smooth(0.38, 0.8, across) +
                           0.05 * rod(across, 0.918, 0.07);
    return {profile - 0.003 * grain, mixed(ramp(kWood, grain), tint(0xC79A45), gilt),
            0.22 + 0.3 * gilt};
}

// Beads between two rods, over a hollow.
FrameSurface gold(double across, double along)
{
    constexpr int kBeads = 3;
    const double phase = along * kBeads - std::floor(along * kBeads) - 0.5;
    const double aside = (across - 0.84) / 0.105;
    const double bead = std::sqrt(std::max(0.0, 1 - aside * aside - 4.6 * phase * phase));
    const double hollow = band(across, 0.36, 0.7, 0.06) *
                          (1 - std::cos(2 * std::numbers::pi * (across - 0.36) / 0.34)) / 2;
    const double profile = 0.15 * rod(across, 0.19, 0.18) - 0.09 * hollow + 0.1 * bead +
                           0.05 * rod(across, 0.71, 0.04);
    const double worn = recurring(across, along, 7, 5, 31);
    const Tint leaf = mixed(tint(0xE2B450), tint(0xB5822B), worn);
    const double depth = 0.45 * hollow + 0.35 * band(across, 0.74, 0.95) * (bead > 0 ? 0 : 1);
    return {profile, mixed(leaf, tint(0x5E3B10), depth), 0.62};
}

FrameSurface silver(double across, double along)
{
    const double brushed = recurring(across, along, 60, 1.5, 47);
    const double profile = 0.16 * smooth(0.0, 0.14, across) - 0.14 * smooth(0.84, 1, across) +
                           0.05 * smooth(0.4, 0.46, across) * (1 - smooth(0.54, 0.6, across));
    return {profile, mixed(tint(0xC8CCD2), tint(0x9DA3AB), brushed), 0.45};
}

// A thin dark frame with a wide white board, cut at an angle towards the picture.
FrameSurface whiteMat(double across, double along)
{
    const double bar = 1 - smooth(0.1, 0.12, across);
    const double cut = smooth(0.88, 0.89, across);
    const double fleck = recurring(across, along, 24, 24, 59);
    const Tint board = mixed(tint(0xF7F5F0), tint(0xEDEAE3), fleck);
    const Tint colour = mixed(mixed(board, tint(0xFFFFFF), cut), tint(0x2B2B2D), bar);
    return {0.05 * rod(across, 0.05, 0.06) - 0.12 * smooth(0.87, 1, across), colour, 0.1 * bar};
}

FrameSurface film(double across, double along)
{
    const double high = std::abs(across - 0.5) - 0.2;
    const double wide = std::abs(along - 0.5) - 0.15;
    constexpr double kRounding = 0.07;
    const double outside =
        std::hypot(std::max(high + kRounding, 0.0), std::max(wide + kRounding, 0.0)) +
        std::min(std::max(high, wide) + kRounding, 0.0) - kRounding;
    const double hole = 1 - smooth(-0.012, 0.012, outside);
    const double rim = band(across, 0.95, 0.99);
    const Tint base = mixed(tint(0x1B1918), tint(0x3A3532), rim);
    return {-0.01 * hole, mixed(base, tint(0xF1EEE6), hole), 0.12 * (1 - hole)};
}

// Two sheets of paper, the upper one torn off along its inner edge.
FrameSurface tornPaper(double across, double along)
{
    constexpr double kTurn = 2 * std::numbers::pi;
    const double ragged = 0.035 * std::sin(kTurn * along) +
                          0.028 * std::sin(kTurn * 3 * along + 1) +
                          0.05 * (recurring(0.3, along, 1, 14, 71) - 0.5);
    const double tear = 0.58 + ragged * smooth(0, 0.4, across);
    const double below = smooth(tear - 0.008, tear + 0.008, across);
    const double fringe = band(across, tear - 0.09, tear, 0.02);
    const double shade = below * (1 - smooth(tear, tear + 0.2, across));
    const double pulp = recurring(across, along, 20, 20, 77);
    const Tint upper = mixed(mixed(tint(0xEFE4CB), tint(0xE0D1B0), pulp), tint(0xFFFBF0), fringe);
    const Tint lower = mixed(tint(0xC9B184), tint(0xB89C6C), pulp);
    return {-0.05 * below - 0.012 * fringe + 0.01 * pulp,
            mixed(mixed(upper, lower, below), tint(0x4A3A20), 0.6 * shade), 0};
}

FrameSurface redLacquer(double across, double along)
{
    const double depth = recurring(across, along, 2, 2, 83);
    const double profile = 0.26 * rod(across, 0.44, 0.46) + 0.06 * rod(across, 0.945, 0.055);
    return {profile, mixed(tint(0xB3121C), tint(0x8C0A15), depth), 0.85};
}

FrameSurface ebonyAndGold(double across, double along)
{
    const double lines = std::max(band(across, 0.14, 0.22), band(across, 0.78, 0.92));
    const double profile = 0.08 * smooth(0, 0.1, across) - 0.06 * smooth(0.22, 0.8, across) +
                           0.045 * rod(across, 0.18, 0.05) + 0.06 * rod(across, 0.85, 0.08);
    const double depth = recurring(across, along, 5, 1, 91);
    const Tint black = mixed(tint(0x2A2725), tint(0x171514), depth);
    return {profile, mixed(black, tint(0xD9AE52), lines), 0.35 + 0.2 * lines};
}

// Canes with one joint to a thickness.
FrameSurface bamboo(double across, double along)
{
    static constexpr std::array<Stop, 3> kCane{{{0, 0xE8CF8A}, {0.6, 0xD3B060}, {1, 0xB68E42}}};
    const double fromJoint = std::abs(along - 0.5);
    const double joint = 1 - smooth(0.012, 0.03, fromJoint);
    const double swelling = 1 - smooth(0.0, 0.16, fromJoint);
    const double fibre = recurring(across, along, 26, 1.2, 97);
    const double profile = (0.24 + 0.04 * swelling) * rod(across, 0.5, 0.49) - 0.02 * joint;
    return {profile, mixed(ramp(kCane, fibre), tint(0x6E4E1E), 0.75 * joint), 0.35};
}

constexpr std::array kMouldings{
    Moulding{"01 Oak", oak},
    Moulding{"02 Walnut", walnut},
    Moulding{"03 Gold", gold},
    Moulding{"04 Silver", silver},
    Moulding{"05 White mat", whiteMat},
    Moulding{"06 Film", film, true},
    Moulding{"07 Torn paper", tornPaper},
    Moulding{"08 Red lacquer", redLacquer},
    Moulding{"09 Ebony and gold", ebonyAndGold},
    Moulding{"10 Bamboo", bamboo, true},
};

} // namespace

std::span<const Moulding> mouldings()
{
    return kMouldings;
}

} // namespace tools
