#pragma once

#include "files/explorer/explorer_images.h"

#include <QHash>
#include <QString>
#include <cstddef>
#include <vector>

namespace files {

// A list of images as a view numbers them, from 1 on. Each key has an entry of its own, whose image
// is the drawing of a role: a hundred thousand files share a few drawings.
class ImageList {
public:
    // The number of a key's entry, without regard to case; added first where there is none. What
    // plays another part than before keeps its number and changes its image.
    int GetIconIndex(const QString& key, ImageRole role);

    // Of an entry that is there.
    [[nodiscard]] ImageRole role(int index) const
    {
        return m_roles[static_cast<std::size_t>(index) - 1];
    }
    [[nodiscard]] int count() const { return static_cast<int>(m_roles.size()); }

private:
    // By a hash of the key in lower case, because whole paths take too much memory. Two keys that
    // meet in one would share a number, and each would still be shown its own image.
    QHash<std::size_t, int> m_indexes;
    std::vector<ImageRole> m_roles;
};

} // namespace files
