#include "core/property_bag.h"

#include "base/numbers.h"

namespace core {

void PropertyBag::write(const QString& name, const QVariant& value, const QVariant& fallback)
{
    if (value == fallback) {
        m_values.erase(name);
    } else {
        m_values[name] = value;
    }
}

QVariant PropertyBag::read(const QString& name, const QVariant& fallback) const
{
    const auto found = m_values.find(name);
    return found == m_values.end() ? fallback : found->second;
}

QVariant kept(const QString& value)
{
    return value;
}

QVariant kept(bool value)
{
    return value;
}

QVariant kept(std::int16_t value)
{
    return static_cast<int>(value);
}

QVariant kept(std::int32_t value)
{
    return value;
}

QVariant kept(base::Colour value)
{
    return static_cast<std::int32_t>(value);
}

QVariant kept(const QVariant& value)
{
    return value;
}

void assign(const QVariant& value, QString& field)
{
    field = value.toString();
}

void assign(const QVariant& value, bool& field)
{
    field = base::toBoolean(value.toString().toStdString()).value_or(field);
}

void assign(const QVariant& value, std::int16_t& field)
{
    if (const std::optional<std::int64_t> number = wholeNumber(value)) {
        field = base::narrow16(*number).value_or(field);
    }
}

void assign(const QVariant& value, std::int32_t& field)
{
    if (const std::optional<std::int64_t> number = wholeNumber(value)) {
        field = base::narrow32(*number).value_or(field);
    }
}

void assign(const QVariant& value, base::Colour& field)
{
    auto number = static_cast<std::int32_t>(field);
    assign(value, number);
    field = static_cast<base::Colour>(number);
}

void assign(const QVariant& value, QVariant& field)
{
    field = value;
}

std::optional<std::int64_t> wholeNumber(const QVariant& value)
{
    bool isNumber = false;
    const qlonglong number = value.toLongLong(&isNumber);
    return isNumber ? std::optional<std::int64_t>(number) : std::nullopt;
}

} // namespace core
