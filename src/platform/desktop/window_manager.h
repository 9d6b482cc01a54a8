#pragma once

namespace platform {

// Whether somebody gives windows their places. Only a bare X server has nobody for that: a window
// there stays where it put itself, and what it asks for is never answered.
[[nodiscard]] bool hasWindowManager();

// Whether the windows are on a Wayland desktop. It tells no program where a window is, and whether
// it is minimised.
[[nodiscard]] bool isOnWayland();

} // namespace platform
