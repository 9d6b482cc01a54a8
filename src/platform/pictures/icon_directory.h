#pragma once

#include <QSize>
#include <cstddef>
#include <span>
#include <vector>

namespace platform {

// One image of an icon or cursor file.
struct IconEntry {
    int index = 0; // its place in the file's directory
    QSize size;    // pixels
    int depth = 0; // bits a pixel
};

// The images of a whole icon or cursor file by what their own headers say, the largest first, and
// of equal ones the deepest. Entries that lead nowhere are left out.
[[nodiscard]] std::vector<IconEntry> iconEntries(std::span<const std::byte> file);

} // namespace platform
