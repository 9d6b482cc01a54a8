#pragma once

namespace platform {

// Hands what the windows have painted to the display system, for work that lets no events run.
void flushScreen();

} // namespace platform
