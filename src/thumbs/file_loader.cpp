#include "thumbs/file_loader.h"

#include "core/state.h"
#include "files/classification.h"
#include "platform/os/paths.h"
#include "platform/pictures/picture_loader.h"
#include "thumbs/picture_fit.h"
#include "thumbs/thumbnail_list.h"
#include "thumbs/tile_kinds.h"

namespace thumbs {

namespace {

LoadedPicture atNaturalSize(const platform::Picture& picture)
{
    return {picture, QSize(picture.width(), picture.height())};
}

} // namespace

void FileLoader::loadTile(const QString& path, QSize room)
{
    const TileKind& kind = tileKindFor(files::extensionOf(platform::fileNameOf(path)));
    if (const auto& badge = m_icons.icon(badgeFile(kind, core::state().FrameWindowOpen))) {
        m_list.surface().fNX = *badge;
    }
    switch (kind.source) {
    case TileSource::Icon:
        loadIcon(iconFile(kind));
        break;
    case TileSource::OwnDecoder:
        m_list.openPsd(path);
        break;
    case TileSource::File:
        loadFitting(path, room);
        break;
    }
}

// Opened by hand, an IFF file isn't taken for one of the own formats.
bool FileLoader::isOwnFormat(const QString& path)
{
    return files::isOwnFormat(path) || files::extensionOf(path) == u"iff";
}

void FileLoader::loadWhole(const QString& path)
{
    if (const auto picture = platform::loadPicture(path)) {
        m_list.surface().P_load = atNaturalSize(*picture);
    }
}

void FileLoader::loadFitting(const QString& path, QSize room)
{
    if (const auto loaded = platform::loadTilePicture(path, room, &fitPicture)) {
        m_list.surface().P_load = {loaded->picture, loaded->naturalSize};
    }
}

void FileLoader::loadIcon(const QString& file)
{
    if (const auto& icon = m_icons.icon(file)) {
        m_list.surface().P_load = atNaturalSize(*icon);
    }
}

} // namespace thumbs
