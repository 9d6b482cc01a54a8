#pragma once

namespace platform {

// After a step that failed: the next one runs on what stood before, or none does.
enum class OnFailure { GoOn, Stop };

} // namespace platform
