#pragma once

namespace mail {

// Makes this folder's windows known to the registry.
void registerWindows();

} // namespace mail
