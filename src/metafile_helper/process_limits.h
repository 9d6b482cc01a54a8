#pragma once

namespace metafile_helper {

// Bounds what this process can take from the system from now on: memory, time of the processor,
// open files, and no byte written to any file. Files come from anywhere, and the libraries that
// draw them are old. False when a limit couldn't be set.
[[nodiscard]] bool limitProcess();

} // namespace metafile_helper
