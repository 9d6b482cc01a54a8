#include "platform/os/registry.h"

#include "platform/os/descriptor.h"
#include "platform/os/files.h"
#include "platform/os/lock_file.h"
#include "platform/os/paths.h"
#include "platform/os/replacement_file.h"

#include <QSettings>
#include <QTemporaryDir>
#include <fcntl.h>
#include <functional>
#include <sys/stat.h>

namespace platform {

namespace {

QString valuesFile(const char* name)
{
    return joinPath(userConfigFolder(), QStringLiteral("vistara/") + QString::fromLatin1(name));
}

std::optional<QString> valueIn(const QSettings& settings, const QString& key)
{
    const QVariant value = settings.value(key);
    if (!value.isValid()) {
        return std::nullopt;
    }
    return value.typeId() == QMetaType::QByteArray ? fromNative(value.toByteArray().toStdString())
                                                   : value.toString();
}

// Opened for each call, so that nothing is kept in memory. Reading alone makes no file.
std::optional<QString> value(const QString& file, const QString& key)
{
    return valueIn(QSettings(file, QSettings::IniFormat), key);
}

void put(QSettings& settings, const QString& key, const QString& value)
{
    // Text with undecodable bytes is kept as bytes; a text value would lose them.
    if (value.isValidUtf16()) {
        settings.setValue(key, value);
    } else {
        settings.setValue(key, QByteArray::fromStdString(toNative(value)));
    }
}

// The file, made private and empty where there is none.
std::optional<QByteArray> bytesToChange(const QString& file)
{
    if (!makeFolder(folderOf(file)) || !openRegular(file, O_WRONLY | O_CREAT, 0600).isOpen()) {
        return std::nullopt;
    }
    return readFile(file);
}

constexpr qint64 kTickNanoseconds = 1000000;

qint64 nanoseconds(const timespec& time)
{
    return qint64(time.tv_sec) * 1000000000 + time.tv_nsec;
}

// QSettings knows a changed file by its size and by the millisecond of its change, so no two
// versions may share one.
void setLaterThan(const QString& file, int descriptor)
{
    struct stat old = {};
    struct stat now = {};
    if (::stat(toNative(file).c_str(), &old) != 0 || ::fstat(descriptor, &now) != 0) {
        return;
    }
    const qint64 earliest = nanoseconds(old.st_mtim) + kTickNanoseconds;
    if (nanoseconds(now.st_mtim) < earliest) {
        const timespec time{earliest / 1000000000, earliest % 1000000000};
        const timespec times[] = {time, time};
        ::futimens(descriptor, times);
    }
}

bool replace(const QString& file, const QByteArray& bytes)
{
    ReplacementFile replacement(file);
    if (!replacement.isOpen() ||
        !writeAll(replacement.descriptor(), bytes.constData(), bytes.size())) {
        return false;
    }
    setLaterThan(file, replacement.descriptor());
    return replacement.commit(Flush::ToDisk);
}

// QSettings writes a file without asking whether it reached the disk. So it gets a copy to change,
// whose bytes then are written as every file of the user's. A file that can't be written stays as
// it was; the program goes on without a word.
void change(const QString& file, const std::function<void(QSettings&)>& edit)
{
    const Descriptor lock = lockFor("values", file);
    const QTemporaryDir scratch(fromNative(privateFolder()) + QStringLiteral("/values-XXXXXX"));
    const QString copy = scratch.filePath(QStringLiteral("values.ini"));
    const auto before = scratch.isValid() ? bytesToChange(file) : std::nullopt;
    if (!before || !writeFileWhole(copy, *before)) {
        return;
    }
    QSettings settings(copy, QSettings::IniFormat);
    edit(settings);
    settings.sync();
    const auto after = readFile(copy);
    if (settings.status() != QSettings::AccessError && after) {
        static_cast<void>(replace(file, *after));
    }
}

void setValue(const QString& file, const QString& key, const QString& text)
{
    if (value(file, key) == text) {
        return; // nothing to write: starting stores several values that stand there already
    }
    change(file, [&](QSettings& settings) { put(settings, key, text); });
}

constexpr const char* kHive = "settings.ini";
constexpr const char* kRegistry = "registry.ini";

QString valueKey(const QString& keyPath, const QString& name)
{
    return QString(keyPath).replace(u'\\', u'/') + u'/' + name;
}

} // namespace

void saveSetting(const QString& section, const QString& key, const QString& value)
{
    setValue(valuesFile(kHive), valueKey(section, key), value);
}

QString getSetting(const QString& section, const QString& key, const QString& fallback)
{
    return value(valuesFile(kHive), valueKey(section, key)).value_or(fallback);
}

void setRegistryValue(const QString& keyPath, const QString& name, const QString& value)
{
    setValue(valuesFile(kRegistry), valueKey(keyPath, name), value);
}

std::optional<QString> registryValue(const QString& keyPath, const QString& name)
{
    return value(valuesFile(kRegistry), valueKey(keyPath, name));
}

void deleteRegistryValue(const QString& keyPath, const QString& name)
{
    const QString file = valuesFile(kRegistry);
    const QString key = valueKey(keyPath, name);
    if (value(file, key)) {
        change(file, [&](QSettings& settings) { settings.remove(key); });
    }
}

} // namespace platform
