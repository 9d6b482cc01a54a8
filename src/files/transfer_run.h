#pragma once

#include "files/transfer.h"

#include <functional>

class QObject;

namespace files {

// Copies or moves a file. While a large one is on its way the strip of the main window fills and
// events run. False when it fails, and also when meanwhile the program closes, the guard goes away
// or the file isn't wanted any more; what stood at the target is there then as it was.
[[nodiscard]] bool runTransfer(TransferKind kind, const QString& from, const QString& to,
                               const QObject& guard, const std::function<bool()>& isWanted);

} // namespace files
