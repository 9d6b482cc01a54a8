#pragma once

namespace core {
class MainWindow;
}

namespace editing {

// Whether the viewer has a picture; a command that needs one says so here when there is none.
[[nodiscard]] bool hasPicture(core::MainWindow& form);

} // namespace editing
