#pragma once

namespace core {
class PictureDisplay;
}

namespace editing {

// The entries of the Image menu, by their index: 0 the Color submenu as it opens, 2 and 3 the
// flips, 4 and 5 the mirrors, 7 the scale. Every one keeps the picture for Undo first and refreshes
// the viewer last; other indexes do that alone.
void optImage(core::PictureDisplay& display, int index);

} // namespace editing
