#pragma once

namespace preferences {

// Makes this folder's windows known to the registry.
void registerWindows();

} // namespace preferences
