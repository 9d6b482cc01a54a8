#pragma once

namespace frames {

// Makes this folder's window known to the registry.
void registerWindows();

} // namespace frames
