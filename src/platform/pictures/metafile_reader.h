#pragma once

#include "platform/os/helper_process.h"

#include <QImage>
#include <QString>
#include <chrono>

class QFile;

namespace platform {

// The helper program that draws metafiles, in the program's folder.
[[nodiscard]] QString metafileHelper();

struct DrawnMetafile {
    QImage image; // null unless the helper answered, and with sense
    HelperEnd end = HelperEnd::NotStarted;
};

// Has the helper draw an open file, whatever of it has been read.
[[nodiscard]] DrawnMetafile
readMetafile(QFile& file, const QString& helper,
             std::chrono::milliseconds patience = std::chrono::seconds(5));

} // namespace platform
