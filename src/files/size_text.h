#pragma once

#include <QString>
#include <QtGlobal>

namespace files {

// A byte count as people read it: "1024 Bytes", "1.5 Kb", "1023.99 Kb", "1 Mb". The fraction is cut
// to two digits, not rounded, and the separator is "." everywhere.
QString sizeText(qint64 bytes);

} // namespace files
