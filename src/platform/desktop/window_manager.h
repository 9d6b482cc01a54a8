#pragma once

namespace platform {

// Whether somebody gives windows their places. Only a bare X server has nobody for that: a window
// there stays where it put itself, and what it asks for is never answered.
[[nodiscard]] bool hasWindowManager();

} // namespace platform
