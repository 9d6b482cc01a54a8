#pragma once

#include <QImage>

namespace tools {

// The sample pictures, each painted anew from numbers alone.
[[nodiscard]] QImage mountainDawn();
[[nodiscard]] QImage desertDunes();
[[nodiscard]] QImage lavenderRows();
[[nodiscard]] QImage poppyField();
[[nodiscard]] QImage birchWood();

[[nodiscard]] QImage moonOverTheSea();
[[nodiscard]] QImage cityAtNight();
[[nodiscard]] QImage ringedPlanet();
[[nodiscard]] QImage northernLights();

[[nodiscard]] QImage stainedGlass();
[[nodiscard]] QImage circlesAndLines();
[[nodiscard]] QImage bowlOfFruit();

// Its right edge continues at its left one.
[[nodiscard]] QImage paperHills();

} // namespace tools
