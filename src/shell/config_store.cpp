#include "shell/config_store.h"

#include "core/constants.h"
#include "platform/os/paths.h"
#include "platform/os/profile.h"

namespace shell {

namespace {

const QString kFileName = QStringLiteral("config.ini");

} // namespace

QString FileConfigStore::read(const QString& key) const
{
    return platform::readProfile(platform::appFile(kFileName), core::kConfigSection, key,
                                 core::kMissingValue);
}

void FileConfigStore::write(const QString& key, const QString& value)
{
    // Where the folder can't be written the setting holds for this run only.
    static_cast<void>(
        platform::writeProfile(platform::appFile(kFileName), core::kConfigSection, key, value));
}

} // namespace shell
