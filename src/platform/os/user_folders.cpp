#include "platform/os/user_folders.h"

#include "platform/os/paths.h"

#include <QStandardPaths>
#include <climits>
#include <unistd.h>

namespace platform {

QString currentFolder()
{
    char current[PATH_MAX];
    return ::getcwd(current, sizeof current) != nullptr ? fromNative(current) : QString();
}

QString documentsFolder()
{
    return withoutSeparator(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
}

QString networkFolder()
{
    const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    return joinPath(runtime, QStringLiteral("gvfs"));
}

} // namespace platform
