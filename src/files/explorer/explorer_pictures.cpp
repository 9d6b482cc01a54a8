#include "files/explorer/explorer_pictures.h"

#include "files/explorer/places.h"

#include <utility>

namespace files {

ExplorerPictures::ExplorerPictures()
{
    for (const PlaceRow& place : {workSpacePlace(), myComputerPlace()}) {
        imgFolder.GetIconIndex(place.key, place.image);
    }
}

PictureSource ExplorerPictures::ofTree()
{
    return [this](ImageRole role, const QString& key) { return picture(imgFolder, role, key); };
}

PictureSource ExplorerPictures::ofList(std::function<bool()> isLarge)
{
    return [this, isLarge = std::move(isLarge)](ImageRole role, const QString& key) {
        return picture(isLarge() ? ImgFiles32 : ImgFiles16, role, key);
    };
}

QVariant ExplorerPictures::picture(ImageList& list, ImageRole role, const QString& key)
{
    return m_icons.icon(list.role(list.GetIconIndex(key, role)));
}

} // namespace files
