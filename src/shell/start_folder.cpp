#include "shell/start_folder.h"

#include "core/constants.h"
#include "core/settings.h"
#include "platform/os/file_list.h"
#include "platform/os/files.h"
#include "platform/os/paths.h"
#include "platform/os/subfolders.h"

namespace shell {

namespace {

bool hasPictures(const QString& folder)
{
    return !folder.isEmpty() && platform::isFolder(folder) &&
           platform::countFiles(folder, core::kPicturePattern) > 0;
}

// Pictures are mostly kept in folders. The home folder, which stands in for a picture folder that
// is missing, has folders of all kinds.
bool isWorthShowing(const QString& folder)
{
    const bool isHome = folder == platform::homeFolder();
    return (!isHome && platform::hasVisibleSubfolder(folder)) || hasPictures(folder);
}

} // namespace

QString startFolder()
{
    const QString stored = core::setting(core::kStartFolder);
    if (!stored.isEmpty()) {
        return stored;
    }
    const QString pictures = platform::picturesFolder();
    return isWorthShowing(pictures) ? pictures : platform::appFile(QStringLiteral("Samples"));
}

} // namespace shell
