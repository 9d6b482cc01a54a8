#include "core/config_store.h"

#include "base/numbers.h"

namespace core {

double ConfigStore::readNumber(const QString& key) const
{
    return base::leadingNumber(read(key).toStdString());
}

std::optional<base::Colour> ConfigStore::readColour(const QString& key) const
{
    const std::optional<std::int32_t> value = base::strictInteger(read(key).toStdString());
    if (!value) {
        return std::nullopt;
    }
    return static_cast<base::Colour>(*value);
}

bool ConfigStore::readBoolean(const QString& key) const
{
    return base::toBoolean(read(key).toStdString()).value_or(false);
}

QString colourText(base::Colour colour)
{
    return QString::number(static_cast<std::int32_t>(colour));
}

} // namespace core
