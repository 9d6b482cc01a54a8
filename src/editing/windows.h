#pragma once

namespace editing {

// Makes this folder's windows known to the registry.
void registerWindows();

} // namespace editing
