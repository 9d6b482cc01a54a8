#pragma once

namespace platform {

// Memory of the system that isn't in use, in percent of all; 0 where the system doesn't tell.
[[nodiscard]] int freeMemoryPercent();

} // namespace platform
