#include "files/text_list.h"

#include "core/config_store.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <algorithm>
#include <optional>

namespace files {

namespace {

constexpr QLatin1Char kNameEnd('#');
constexpr QLatin1Char kRecordEnd(';');

// A count beyond these is a damaged setting, and each entry costs an entry of a menu.
constexpr int kMostEntries = 100000;
constexpr int kMostEmptyEntries = 1000; // behind the records
constexpr double kLargestCount = 1e15;  // that is counted on from, either way

// So that a damaged file without marks isn't searched to its end for each entry.
constexpr qsizetype kLongestName = 1024;

QString pathOf(const TextList& list)
{
    return platform::appFile(list.fileName);
}

QByteArray bytesOf(const QString& text)
{
    return QByteArray::fromStdString(platform::toNative(text));
}

std::optional<QString> readLine(const TextList& list)
{
    const std::optional<QByteArray> bytes = platform::readFile(pathOf(list));
    if (!bytes) {
        return std::nullopt;
    }
    qsizetype end = 0;
    while (end < bytes->size() && bytes->at(end) != '\n' && bytes->at(end) != '\r') {
        ++end;
    }
    return platform::fromNative(bytes->left(end).toStdString());
}

int storedCount(const TextList& list, const core::ConfigStore& config)
{
    const double count = config.readNumber(list.countKey);
    return static_cast<int>(std::clamp<double>(count, 0, kMostEntries));
}

void changeCount(const TextList& list, core::ConfigStore& config, int difference)
{
    const double stored = config.readNumber(list.countKey);
    const auto count = static_cast<qint64>(std::clamp(stored, -kLargestCount, kLargestCount));
    config.write(list.countKey, QString::number(count + difference));
}

QString recordOf(const NamedPath& entry)
{
    return entry.name + kNameEnd + entry.path + kRecordEnd;
}

// The end of the record that begins at a place; the line's end where it isn't complete.
qsizetype recordEnd(const QString& line, qsizetype from)
{
    const qsizetype end = line.indexOf(kRecordEnd, from);
    return end < 0 ? line.size() : end;
}

struct Record {
    qsizetype start;
    qsizetype end; // the line's size where there is no record any more
};

std::vector<Record> recordsIn(const QString& line, int count)
{
    std::vector<Record> records;
    qsizetype at = 0;
    int empty = 0;
    for (int i = 0; i < count; ++i) {
        if (at == line.size() && ++empty > kMostEmptyEntries) {
            break;
        }
        const qsizetype end = recordEnd(line, at);
        records.push_back({at, end});
        at = std::min(end + 1, line.size());
    }
    return records;
}

// The two marks are looked for each by itself and not within a record, so a name or a path that
// holds one breaks the entries behind it.
NamedPath entryAt(const QString& line, const Record& record)
{
    const QStringView near = QStringView(line).mid(record.start, kLongestName + 1);
    const qsizetype nameSize = near.indexOf(kNameEnd);
    if (nameSize < 0 || record.end == line.size()) {
        return {};
    }
    const qsizetype pathStart = record.start + nameSize + 1;
    return {near.left(nameSize).toString(),
            line.mid(pathStart, std::max<qsizetype>(record.end - pathStart, 0))};
}

} // namespace

std::vector<NamedPath> readNamed(const TextList& list, const core::ConfigStore& config)
{
    const std::optional<QString> line = readLine(list);
    std::vector<NamedPath> entries;
    if (!line) {
        return entries;
    }
    for (const Record& record : recordsIn(*line, storedCount(list, config))) {
        entries.push_back(entryAt(*line, record));
    }
    return entries;
}

QStringList readPaths(const TextList& list, const core::ConfigStore& config)
{
    const std::optional<QString> line = readLine(list);
    QStringList paths;
    if (!line) {
        return paths;
    }
    for (const auto& [start, end] : recordsIn(*line, storedCount(list, config))) {
        paths.append(end < line->size() ? line->mid(start, end - start) : QString());
    }
    return paths;
}

void addNamed(const TextList& list, const NamedPath& entry, core::ConfigStore& config)
{
    if (platform::appendToFile(pathOf(list), bytesOf(recordOf(entry)))) {
        changeCount(list, config, 1);
    }
}

void addPath(const TextList& list, const QString& path, core::ConfigStore& config)
{
    if (platform::appendToFile(pathOf(list), bytesOf(path + kRecordEnd))) {
        changeCount(list, config, 1);
    }
}

void deleteOne(const TextList& list, const NamedPath& entry, core::ConfigStore& config)
{
    changeCount(list, config, -1);
    replaceText(list, recordOf(entry), QString());
}

void replaceText(const TextList& list, const QString& oldText, const QString& newText)
{
    std::optional<QString> line = readLine(list);
    if (!line || oldText.isEmpty()) {
        return;
    }
    rewrite(list, line->replace(oldText, newText));
}

void renameEntry(const TextList& list, const NamedPath& entry, const QString& newName)
{
    replaceText(list, recordOf(entry), recordOf({newName, entry.path}));
}

void rewrite(const TextList& list, const QString& text)
{
    // A list that can't be written stays as it was; the program goes on without a word.
    static_cast<void>(
        platform::writeFileWhole(pathOf(list), bytesOf(text), platform::Flush::ToDisk));
}

} // namespace files
