#include "files/text_list.h"

#include "core/config_store.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <optional>

namespace files {

namespace {

constexpr QLatin1Char kNameEnd('#');
constexpr QLatin1Char kRecordEnd(';');

// A count beyond this is a damaged setting; empty entries by the million would fill memory.
constexpr int kMostEntries = 100000;

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

// The text before the mark, "" where the mark is missing.
QString before(const QString& text, QLatin1Char mark)
{
    const qsizetype at = text.indexOf(mark);
    return at < 0 ? QString() : text.left(at);
}

int storedCount(const TextList& list, const core::ConfigStore& config)
{
    const double count = config.readNumber(list.countKey);
    return count > kMostEntries ? kMostEntries : static_cast<int>(count);
}

void changeCount(const TextList& list, core::ConfigStore& config, int difference)
{
    const auto count = static_cast<qint64>(config.readNumber(list.countKey));
    config.write(list.countKey, QString::number(count + difference));
}

QString recordOf(const NamedPath& entry)
{
    return entry.name + kNameEnd + entry.path + kRecordEnd;
}

// The records of a line, one a step; past the last one they are empty.
class RecordCursor {
public:
    explicit RecordCursor(QString line)
        : m_line(std::move(line))
    {
    }

    QString next()
    {
        const qsizetype end = m_line.indexOf(kRecordEnd, m_at);
        if (end < 0) {
            m_at = m_line.size();
            return {};
        }
        const QString record = m_line.mid(m_at, end - m_at);
        m_at = end + 1;
        return record;
    }

private:
    QString m_line;
    qsizetype m_at = 0;
};

} // namespace

std::vector<NamedPath> readNamed(const TextList& list, const core::ConfigStore& config)
{
    const std::optional<QString> line = readLine(list);
    std::vector<NamedPath> entries;
    if (!line) {
        return entries;
    }
    RecordCursor records(*line);
    const int count = storedCount(list, config);
    for (int i = 0; i < count; ++i) {
        const QString record = records.next();
        const QString name = before(record, kNameEnd);
        const bool hasName = record.contains(kNameEnd);
        entries.push_back({name, hasName ? record.mid(name.size() + 1) : QString()});
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
    RecordCursor records(*line);
    const int count = storedCount(list, config);
    for (int i = 0; i < count; ++i) {
        paths.append(records.next());
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
    static_cast<void>(platform::writeFileWhole(pathOf(list), bytesOf(text)));
}

} // namespace files
