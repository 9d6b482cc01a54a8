#include "acquire/windows.h"

namespace acquire {

void registerWindows() {}

} // namespace acquire
