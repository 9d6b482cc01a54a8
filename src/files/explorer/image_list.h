#pragma once

#include "files/explorer/explorer_images.h"

#include <QByteArray>
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
    QHash<QByteArray, int> m_indexes; // by the key's bytes in lower case
    std::vector<ImageRole> m_roles;
};

} // namespace files
