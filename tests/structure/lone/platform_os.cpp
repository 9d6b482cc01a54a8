#include "platform/os/file_list.h"

#include <QTemporaryDir>

int main()
{
    const QTemporaryDir folder;
    return platform::countFiles(folder.path(), QStringLiteral("*.bmp")) == 0 ? 0 : 1;
}
