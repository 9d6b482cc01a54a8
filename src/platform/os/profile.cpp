#include "platform/os/profile.h"

#include "platform/os/files.h"
#include "platform/os/lock_file.h"
#include "platform/os/paths.h"
#include "platform/os/profile_text.h"

#include <cerrno>
#include <sys/stat.h>

namespace platform {

namespace {

constexpr qint64 kMostFileBytes = qint64(64) << 20;

// What a reader's buffer of 255 characters holds beside its terminator.
constexpr qsizetype kMostCharacters = 254;

QByteArrayView withoutQuotes(QByteArrayView value)
{
    const bool isQuoted = value.size() >= 2 && value.front() == value.back() &&
                          (value.front() == '"' || value.front() == '\'');
    return isQuoted ? value.sliced(1, value.size() - 2) : value;
}

QString cut(QString value)
{
    const qsizetype terminator = value.indexOf(QChar(u'\0'));
    if (terminator >= 0) {
        value.truncate(terminator);
    }
    if (value.size() > kMostCharacters) {
        const bool splitsPair =
            value[kMostCharacters - 1].isHighSurrogate() && value[kMostCharacters].isLowSurrogate();
        value.truncate(splitsPair ? kMostCharacters - 1 : kMostCharacters);
    }
    return value;
}

// Names that could not be found again once they were written.
bool isWritable(const QString& section, const QString& key)
{
    const auto hasLineEnd = [](const QString& text) {
        return text.contains(u'\n') || text.contains(u'\r') || text.contains(QChar(u'\0'));
    };
    return !key.trimmed().isEmpty() && !key.contains(u'=') && !key.startsWith(u'[') &&
           !key.startsWith(u';') && !key.startsWith(u'#') && !hasLineEnd(key) &&
           !section.contains(u']') && !hasLineEnd(section);
}

// The text of the file, empty for one that doesn't exist yet; nothing where it can't be read, which
// must never be taken for empty.
std::optional<QByteArray> textToChange(const QString& file)
{
    auto text = readFile(file, kMostFileBytes);
    if (!text) {
        struct stat facts = {};
        if (::lstat(toNative(file).c_str(), &facts) != 0 && errno == ENOENT) {
            text = QByteArray();
        }
    }
    return text;
}

} // namespace

QString readProfile(const QString& file, const QString& section, const QString& key,
                    const QString& fallback)
{
    const auto text = readFile(file, kMostFileBytes);
    if (!text) {
        return fallback;
    }
    const auto value = profileValue(*text, section, key);
    if (!value) {
        return fallback;
    }
    const QByteArrayView bytes = withoutQuotes(*value);
    return cut(fromNative(std::string(bytes.data(), static_cast<std::size_t>(bytes.size()))));
}

bool writeProfile(const QString& file, const QString& section, const QString& key,
                  const QString& value)
{
    if (!isWritable(section, key)) {
        return false;
    }
    // Without it the write is still whole; only a write of another process may be lost.
    const Descriptor lock = lockFor("profile", file);
    const auto text = textToChange(file);
    if (!text) {
        return false;
    }
    const QByteArray changed = withProfileValue(*text, section, key, value);
    return changed == *text || writeFileWhole(file, changed, Flush::ToDisk);
}

} // namespace platform
