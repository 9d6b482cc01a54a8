#include "files/text_list.h"

#include "platform/os/files.h"
#include "platform/os/paths.h"

#include <QFile>
#include <algorithm>
#include <memory>
#include <optional>

namespace files {

namespace {

constexpr QLatin1Char kNameEnd('#');
constexpr QLatin1Char kRecordEnd(';');

// Each entry costs an entry of a menu. Of more records the newest are read; empty entries behind
// them only come of a damaged setting.
constexpr qint64 kMostEntries = 100000;
constexpr qint64 kMostEmptyEntries = 1000;
constexpr double kLargestCount = 1e15; // that is counted on from, either way

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

qint64 storedCount(const TextList& list)
{
    const double count = core::setting(list.countKey);
    return static_cast<qint64>(std::clamp(count, -kLargestCount, kLargestCount));
}

void changeCount(const TextList& list, int difference)
{
    core::store(list.countKey, storedCount(list) + difference);
}

// A record that was cut off, by a full disk or by hand, is closed first; else it would take the new
// one for a part of itself.
bool appendRecord(const TextList& list, const QString& record)
{
    QByteArray bytes = bytesOf(record);
    const std::unique_ptr<QFile> file = platform::openForReading(pathOf(list));
    char last = kRecordEnd.toLatin1();
    if (file != nullptr && file->seek(file->size() - 1) && file->getChar(&last) &&
        last != kRecordEnd.toLatin1() && last != '\n' && last != '\r') {
        bytes.prepend(kRecordEnd.toLatin1());
    }
    return platform::appendToFile(pathOf(list), bytes);
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

std::vector<Record> recordsIn(const QString& line, qint64 count)
{
    const bool cutOff = !line.isEmpty() && !line.endsWith(kRecordEnd);
    const qint64 present = line.count(kRecordEnd) + (cutOff ? 1 : 0);
    const qint64 tooOld = std::max<qint64>(std::min(count, present) - kMostEntries, 0);
    const qint64 last = std::min({count, present + kMostEmptyEntries, tooOld + kMostEntries});
    std::vector<Record> records;
    qsizetype at = 0;
    for (qint64 i = 0; i < last; ++i) {
        const qsizetype end = recordEnd(line, at);
        if (i >= tooOld) {
            records.push_back({at, end});
        }
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
    if (nameSize < 0) {
        return {};
    }
    NamedPath entry{near.left(nameSize).toString(), QString()};
    // A path without its end may have been cut off and could name something else.
    if (record.end < line.size()) {
        const qsizetype pathStart = record.start + nameSize + 1;
        entry.path = line.mid(pathStart, std::max<qsizetype>(record.end - pathStart, 0));
    }
    return entry;
}

} // namespace

std::vector<NamedPath> readNamed(const TextList& list)
{
    const std::optional<QString> line = readLine(list);
    std::vector<NamedPath> entries;
    if (!line) {
        return entries;
    }
    for (const Record& record : recordsIn(*line, storedCount(list))) {
        entries.push_back(entryAt(*line, record));
    }
    return entries;
}

QStringList readPaths(const TextList& list)
{
    const std::optional<QString> line = readLine(list);
    QStringList paths;
    if (!line) {
        return paths;
    }
    for (const auto& [start, end] : recordsIn(*line, storedCount(list))) {
        paths.append(end < line->size() ? line->mid(start, end - start) : QString());
    }
    return paths;
}

void addNamed(const TextList& list, const NamedPath& entry)
{
    if (appendRecord(list, recordOf(entry))) {
        changeCount(list, 1);
    }
}

void addPath(const TextList& list, const QString& path)
{
    if (appendRecord(list, path + kRecordEnd)) {
        changeCount(list, 1);
    }
}

void deleteOne(const TextList& list, const NamedPath& entry)
{
    changeCount(list, -1);
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
