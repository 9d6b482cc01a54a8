#include "core/settings.h"

#include "base/numbers.h"
#include "core/config_store.h"
#include "core/constants.h"
#include "core/services.h"

namespace core {

namespace {

struct SwitchTexts {
    const char* on;
    const char* off;
};

QString textOf(const char* name)
{
    const ConfigStore* config = services().config;
    return config == nullptr ? kMissingValue : config->read(QString::fromLatin1(name));
}

void storeText(const char* name, const QString& text)
{
    if (ConfigStore* config = services().config) {
        config->write(QString::fromLatin1(name), text);
    }
}

double numberOf(const char* name)
{
    return base::leadingNumber(textOf(name).toStdString());
}

SwitchTexts textsOf(On on)
{
    switch (on) {
    case On::Zero:
        return {"0", "1"};
    case On::True:
        return {"True", "False"};
    case On::NotZero:
    case On::One:
        break;
    }
    return {"1", "0"};
}

} // namespace

bool setting(const SwitchKey& key)
{
    switch (key.on) {
    case On::Zero:
        return numberOf(key.name) == 0;
    case On::One:
        return numberOf(key.name) == 1;
    case On::True:
        return base::toBoolean(textOf(key.name).toStdString()).value_or(false);
    case On::NotZero:
        break;
    }
    return numberOf(key.name) != 0;
}

double setting(const NumberKey& key)
{
    return numberOf(key.name);
}

int setting(const ChoiceKey& key)
{
    const QString text = textOf(key.name);
    const int digit = text.size() == 1 ? text.front().unicode() - u'0' : 0;
    return digit >= 0 && digit < key.choices ? digit : 0;
}

std::optional<base::Colour> setting(const ColourKey& key)
{
    const std::optional<std::int32_t> value = base::strictInteger(textOf(key.name).toStdString());
    if (!value) {
        return std::nullopt;
    }
    return static_cast<base::Colour>(*value);
}

QString setting(const FolderKey& key)
{
    const QString text = textOf(key.name);
    return text == kMissingValue ? QString() : text;
}

QString setting(const TextKey& key)
{
    return textOf(key.name);
}

void store(const SwitchKey& key, bool on)
{
    const SwitchTexts texts = textsOf(key.on);
    storeText(key.name, QString::fromLatin1(on ? texts.on : texts.off));
}

void store(const NumberKey& key, qint64 number)
{
    storeText(key.name, QString::number(number));
}

void store(const ChoiceKey& key, int choice)
{
    storeText(key.name, QString::number(choice));
}

void store(const ColourKey& key, base::Colour colour)
{
    storeText(key.name, QString::number(static_cast<std::int32_t>(colour)));
}

void store(const FolderKey& key, const QString& folder)
{
    storeText(key.name, folder);
}

void store(const TextKey& key, const QString& text)
{
    storeText(key.name, text);
}

void storeInWords(const ColourKey& key, base::Colour colour)
{
    storeText(key.name, QStringLiteral("RGB(%1, %2, %3)")
                            .arg(base::redOf(colour))
                            .arg(base::greenOf(colour))
                            .arg(base::blueOf(colour)));
}

} // namespace core
