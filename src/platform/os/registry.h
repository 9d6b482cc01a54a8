#pragma once

#include <QString>
#include <optional>

// Per-user values outside the program's folder, in INI files under $XDG_CONFIG_HOME/vistara.
namespace platform {

// The program's own settings hive, by section and key.
void saveSetting(const QString& section, const QString& key, const QString& value);
QString getSetting(const QString& section, const QString& key, const QString& fallback = {});

// Other values of the user, by a key path such as "Software\\Corvane\\Qlink" and a name.
void setRegistryValue(const QString& keyPath, const QString& name, const QString& value);
std::optional<QString> registryValue(const QString& keyPath, const QString& name);
void deleteRegistryValue(const QString& keyPath, const QString& name);

} // namespace platform
