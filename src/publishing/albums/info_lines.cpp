#include "publishing/albums/info_lines.h"

#include "platform/os/entry_facts.h"
#include "platform/os/paths.h"

#include <QDateTime>
#include <array>
#include <fcntl.h>

namespace albums {

namespace {

struct Labels {
    const char* name;
    const char* time;
};
// By language.
constexpr std::array<Labels, 2> kLabels{
    {{"Filename : ", "Date     : "}, {"Bestand  : ", "Datum    : "}}};

QByteArray infoLine(const char* label, const QByteArray& value)
{
    return "<dt>" + QByteArray(label) + value + "</dt>\r\n";
}

} // namespace

QString lastChange(const QString& path)
{
    const auto facts = platform::EntryInspector().look(AT_FDCWD, platform::toNative(path).c_str());
    return facts ? QDateTime::fromSecsSinceEpoch(facts->modified)
                       .toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))
                 : QString();
}

QByteArray infoLines(const QString& name, const QString& time, const PageMode& mode)
{
    if (mode.language != 0 && mode.language != 1) {
        return {};
    }
    const Labels& labels = kLabels[static_cast<std::size_t>(mode.language)];
    return infoLine(labels.name, textBytes(name, mode.writing)) +
           infoLine(labels.time, textBytes(time, mode.writing));
}

} // namespace albums
