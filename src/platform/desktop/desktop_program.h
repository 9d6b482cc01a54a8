#pragma once

#include <QStringList>

namespace platform {

enum class DesktopProgram {
    Done,    // ended with success
    Refused, // ended with another exit code
    Missing, // not on the search path, didn't start, crashed, or was killed since it didn't end
};

// Runs a program of the desktop, by its name on the search path, and waits a few seconds for its
// end.
[[nodiscard]] DesktopProgram runDesktopProgram(const QString& name, const QStringList& arguments);

} // namespace platform
