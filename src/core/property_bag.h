#pragma once

#include "base/colours.h"

#include <QString>
#include <QVariant>
#include <cstdint>
#include <map>
#include <optional>

namespace core {

// Properties of a control by name, as the window that holds it keeps them.
class PropertyBag {
public:
    // A value equal to its default isn't kept.
    void write(const QString& name, const QVariant& value, const QVariant& fallback);
    [[nodiscard]] QVariant read(const QString& name, const QVariant& fallback) const;
    [[nodiscard]] const std::map<QString, QVariant>& values() const { return m_values; }

private:
    std::map<QString, QVariant> m_values;
};

// A property as the bag keeps it. Colours are the signed numbers that settings hold.
[[nodiscard]] QVariant kept(const QString& value);
[[nodiscard]] QVariant kept(bool value);
[[nodiscard]] QVariant kept(std::int16_t value);
[[nodiscard]] QVariant kept(std::int32_t value);
[[nodiscard]] QVariant kept(base::Colour value);
[[nodiscard]] QVariant kept(const QVariant& value);

// Sets a property from what a bag has; a value that doesn't fit leaves it as it is.
void assign(const QVariant& value, QString& field);
void assign(const QVariant& value, bool& field);
void assign(const QVariant& value, std::int16_t& field);
void assign(const QVariant& value, std::int32_t& field);
void assign(const QVariant& value, base::Colour& field);
void assign(const QVariant& value, QVariant& field);

// The value as a whole number, if it is one.
[[nodiscard]] std::optional<std::int64_t> wholeNumber(const QVariant& value);

} // namespace core
