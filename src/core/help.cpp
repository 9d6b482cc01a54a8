#include "core/help.h"

#include "platform/desktop/desktop.h"
#include "platform/os/paths.h"

namespace core {

void openHelp()
{
    platform::desktop().openDocument(platform::appFile(QStringLiteral("HelpDocuments.chm")));
}

} // namespace core
