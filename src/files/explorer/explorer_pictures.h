#pragma once

#include "files/explorer/image_list.h"
#include "files/explorer/model_roles.h"
#include "files/explorer/role_icons.h"

#include <functional>

namespace files {

// The pictures of the explorer's two views. An entry stands in a list from the time that its line
// is shown first, so that lines nobody looks at cost nothing.
class ExplorerPictures {
public:
    // The two nodes at the top have the first two images of the tree.
    ExplorerPictures();
    ExplorerPictures(const ExplorerPictures&) = delete;
    ExplorerPictures& operator=(const ExplorerPictures&) = delete;

    // For the models; this outlives what takes them.
    [[nodiscard]] PictureSource ofTree();
    [[nodiscard]] PictureSource ofList(std::function<bool()> isLarge);

    ImageList ImgFiles32; // large and small ones of the list
    ImageList ImgFiles16;
    ImageList imgFolder; // of the tree

private:
    [[nodiscard]] QVariant picture(ImageList& list, ImageRole role, const QString& key);

    RoleIcons m_icons;
};

} // namespace files
