#pragma once

namespace tools {

struct Folders;

// The styles of the frame composer: for each its picture, and in FrameLib its eight tiles.
[[nodiscard]] bool deliverFrames(const Folders& folders);

} // namespace tools
