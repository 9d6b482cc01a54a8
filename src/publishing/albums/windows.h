#pragma once

namespace albums {

// Makes this folder's windows known to the registry.
void registerWindows();

} // namespace albums
