#pragma once

#include <QImage>
#include <QString>
#include <chrono>

class QFile;

namespace platform {

// The helper program that draws metafiles, in the program's folder.
[[nodiscard]] QString metafileHelper();

// Has the helper draw an open file, whatever of it has been read. Null when the helper refuses the
// file, crashes on it, isn't done in time or answers nonsense.
[[nodiscard]] QImage readMetafile(QFile& file, const QString& helper,
                                  std::chrono::milliseconds patience = std::chrono::seconds(5));

} // namespace platform
