#pragma once

#include <QString>
#include <QStringList>

namespace platform {

// Starts a program that goes on by itself, by the bytes of its path and arguments. False when there
// is no such program, or the system couldn't start it.
[[nodiscard]] bool startDetached(const QString& path, const QStringList& arguments);

} // namespace platform
