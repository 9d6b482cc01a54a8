#pragma once

namespace acquire {

// Makes this folder's windows known to the registry.
void registerWindows();

} // namespace acquire
