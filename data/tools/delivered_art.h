#pragma once

#include <filesystem>

namespace tools {

// Where drawings are read and where the finished folder stands.
struct Folders {
    std::filesystem::path art;
    std::filesystem::path images;
    std::filesystem::path samples;
    std::filesystem::path frames;
};

// Toolbar pictures, as name.png, name@2x.png and name@3x.png.
[[nodiscard]] bool deliverToolbar(const Folders& folders);

// What the explorer shows beside names: name.png of 16 pixels and its multiples up to name@6x.png,
// so that 16 and 32 pixels come for screens of ratio 1, 2 and 3.
[[nodiscard]] bool deliverExplorer(const Folders& folders);

// Badges, the symbols of tiles without a picture, and the program's own icon.
[[nodiscard]] bool deliverIcons(const Folders& folders);

// Pointers of the viewer, with the hot spot in the middle of the 32 pixels.
[[nodiscard]] bool deliverCursors(const Folders& folders);

// Start-up and about pictures, title strips and the pictures of single windows.
[[nodiscard]] bool deliverScenes(const Folders& folders);

// The small clip that plays in the toolbar while the program runs.
[[nodiscard]] bool deliverClip(const Folders& folders);

} // namespace tools
