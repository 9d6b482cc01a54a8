#include "publishing/albums/album_folders.h"

#include "platform/os/paths.h"

namespace albums {

AlbumFolders albumFolders(const QString& root, const QString& folder)
{
    const QString belowDrive = folder.mid(platform::drivePrefix(folder).size());
    AlbumFolders folders;
    folders.web =
        platform::joinPath(root.isEmpty() ? platform::appPath() : root, QStringLiteral("Web"));
    folders.album = platform::withoutSeparator(folders.web + belowDrive);
    folders.originals = platform::joinPath(folders.album, kOriginals);
    return folders;
}

} // namespace albums
