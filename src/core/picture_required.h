#pragma once

namespace core {

class Viewer;

// Whether the viewer has a picture; a command that needs one says so here when there is none.
[[nodiscard]] bool requirePicture(const Viewer& viewer);

// The box that says that there is no picture.
void reportNoPicture();

} // namespace core
