#include "publishing/printing/print_resolution.h"

#include "platform/os/registry.h"

namespace printing {

void storePrintResolution()
{
    platform::saveSetting(QStringLiteral("Print"), QStringLiteral("Resolution"),
                          QStringLiteral("300"));
}

} // namespace printing
