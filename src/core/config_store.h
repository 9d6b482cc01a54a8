#pragma once

#include <QString>

namespace core {

// One key at a time of config.ini, read and written when it is needed and never kept. What the keys
// mean stands in core/settings.h.
class ConfigStore {
public:
    virtual ~ConfigStore() = default;

    // The value as text; "ERROR" for a key that isn't there.
    [[nodiscard]] virtual QString read(const QString& key) const = 0;

    // On disk when it returns. A failed write changes nothing and says nothing.
    virtual void write(const QString& key, const QString& value) = 0;
};

} // namespace core
