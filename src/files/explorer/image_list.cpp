#include "files/explorer/image_list.h"

namespace files {

int ImageList::GetIconIndex(const QString& key, ImageRole role)
{
    int& index = m_indexes[qHash(key.toLower(), QHashSeed::globalSeed())];
    if (index == 0) {
        m_roles.push_back(role);
        index = count();
    }
    m_roles[static_cast<std::size_t>(index) - 1] = role;
    return index;
}

} // namespace files
