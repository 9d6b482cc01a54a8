#pragma once

namespace printing {

// Makes this folder's windows known to the registry.
void registerWindows();

} // namespace printing
