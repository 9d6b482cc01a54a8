#include "platform/desktop/desktop_program.h"

#include "platform/os/helper_process.h"

#include <QStandardPaths>

namespace platform {

namespace {

constexpr std::chrono::seconds kPatience(3);
constexpr qint64 kMostTalk = 1 << 16; // bytes; nobody reads what it says

} // namespace

DesktopProgram runDesktopProgram(const QString& name, const QStringList& arguments)
{
    const QString program = QStandardPaths::findExecutable(name);
    if (program.isEmpty()) {
        return DesktopProgram::Missing;
    }
    switch (helperAnswer({program, -1, kMostTalk, kPatience, arguments}).end) {
    case HelperEnd::Answered:
        return DesktopProgram::Done;
    case HelperEnd::Refused:
        return DesktopProgram::Refused;
    default:
        return DesktopProgram::Missing;
    }
}

} // namespace platform
