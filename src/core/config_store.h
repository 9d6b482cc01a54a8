#pragma once

#include "base/colours.h"

#include <QString>
#include <optional>

namespace core {

// One key at a time of config.ini, read and written when it is needed and never kept.
class ConfigStore {
public:
    virtual ~ConfigStore() = default;

    // The value as text; "ERROR" for a key that isn't there.
    [[nodiscard]] virtual QString read(const QString& key) const = 0;

    // On disk when it returns. A failed write changes nothing and says nothing.
    virtual void write(const QString& key, const QString& value) = 0;

    // By leading digits: a text without any is 0.
    [[nodiscard]] double readNumber(const QString& key) const;

    // Strict conversions: nothing for a text that is no number (no boolean).
    [[nodiscard]] std::optional<base::Colour> readColour(const QString& key) const;
    [[nodiscard]] bool readBoolean(const QString& key) const; // what can't be converted is false
};

// Colour text as the file holds it: the decimal value.
QString colourText(base::Colour colour);

} // namespace core
