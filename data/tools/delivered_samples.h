#pragma once

namespace tools {

struct Folders;

// The sample pictures: something to look at after the first start, in every format that is read.
[[nodiscard]] bool deliverSamples(const Folders& folders);

} // namespace tools
