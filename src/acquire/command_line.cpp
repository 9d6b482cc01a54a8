#include "acquire/command_line.h"

#include "core/state.h"
#include "platform/os/paths.h"

#include <QCoreApplication>

namespace acquire {

namespace {

constexpr QChar kQuote = u'"';
constexpr QChar kBlank = u' ';

QString commandLine()
{
    const QString between = QStringLiteral("\" \"");
    return kQuote + QCoreApplication::arguments().join(between) + kQuote;
}

// Blanks separate arguments, but not those in double quotes.
QStringList argumentsOf(const QString& line)
{
    QStringList arguments = {QString()};
    bool quoted = false;
    for (const QChar character : line) {
        if (character == kQuote) {
            quoted = !quoted;
        } else if (character == kBlank && !quoted) {
            arguments.append(QString());
        } else {
            arguments.last().append(character);
        }
    }
    return arguments;
}

} // namespace

void readCommandLine()
{
    for (const QString& argument : argumentsOf(commandLine())) {
        core::state().CommandLineFile =
            platform::joinPath(platform::folderOf(argument), platform::fileNameOf(argument));
    }
}

} // namespace acquire
