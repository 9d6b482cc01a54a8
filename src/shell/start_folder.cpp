#include "shell/start_folder.h"

#include "core/config_store.h"
#include "core/constants.h"
#include "platform/file_list.h"
#include "platform/files.h"
#include "platform/paths.h"

namespace shell {

namespace {

bool hasPictures(const QString& folder)
{
    return !folder.isEmpty() && platform::isFolder(folder) &&
           platform::countFiles(folder, core::kPicturePattern) > 0;
}

} // namespace

QString startFolder(const core::ConfigStore& config)
{
    const QString stored = config.read(QStringLiteral("SpeciFolder"));
    if (stored != core::kMissingValue && !stored.isEmpty()) {
        return stored;
    }
    const QString pictures = platform::picturesFolder();
    return hasPictures(pictures) ? pictures : platform::appFile(QStringLiteral("Samples"));
}

} // namespace shell
