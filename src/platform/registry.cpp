#include "platform/registry.h"

#include "platform/paths.h"

#include <QSettings>

namespace platform {

namespace {

// Opened for each call and written when it goes out of scope, so that nothing is kept in memory.
// Reading alone makes no file.
class Values {
public:
    explicit Values(const char* fileName)
        : m_settings(joinPath(userConfigFolder(),
                              QStringLiteral("vistara/") + QString::fromLatin1(fileName)),
                     QSettings::IniFormat)
    {
    }

    void set(const QString& key, const QString& value)
    {
        if (get(key) == value) {
            return; // nothing to write: starting stores several values that stand there already
        }
        // Text with undecodable bytes is kept as bytes; a text value would lose them.
        if (value.isValidUtf16()) {
            m_settings.setValue(key, value);
        } else {
            m_settings.setValue(key, QByteArray::fromStdString(toNative(value)));
        }
    }

    std::optional<QString> get(const QString& key) const
    {
        const QVariant value = m_settings.value(key);
        if (!value.isValid()) {
            return std::nullopt;
        }
        return value.typeId() == QMetaType::QByteArray
                   ? fromNative(value.toByteArray().toStdString())
                   : value.toString();
    }

    void remove(const QString& key)
    {
        if (m_settings.contains(key)) {
            m_settings.remove(key);
        }
    }

private:
    QSettings m_settings;
};

constexpr const char* kHive = "settings.ini";
constexpr const char* kRegistry = "registry.ini";

QString valueKey(const QString& keyPath, const QString& name)
{
    return QString(keyPath).replace(u'\\', u'/') + u'/' + name;
}

} // namespace

void saveSetting(const QString& section, const QString& key, const QString& value)
{
    Values(kHive).set(valueKey(section, key), value);
}

QString getSetting(const QString& section, const QString& key, const QString& fallback)
{
    return Values(kHive).get(valueKey(section, key)).value_or(fallback);
}

void setRegistryValue(const QString& keyPath, const QString& name, const QString& value)
{
    Values(kRegistry).set(valueKey(keyPath, name), value);
}

std::optional<QString> registryValue(const QString& keyPath, const QString& name)
{
    return Values(kRegistry).get(valueKey(keyPath, name));
}

void deleteRegistryValue(const QString& keyPath, const QString& name)
{
    Values(kRegistry).remove(valueKey(keyPath, name));
}

} // namespace platform
