#include "publishing/mail/mail_settings.h"

#include "base/numbers.h"
#include "core/constants.h"
#include "core/settings.h"

namespace mail {

namespace {

qint16 portOf(const QString& text, qint16 before)
{
    return base::roundTo16(base::leadingNumber(text.toStdString())).value_or(before);
}

// Read as a text: as a choice, what can't be read would be the first one, and what was meant to be
// encrypted would go out readable.
constexpr core::TextKey kSecurityText{core::kMailSecurity.name};

MailSecurity securityOf(const QString& text)
{
    if (text == core::kMissingValue) {
        return MailSecurity::None;
    }
    const int digit = text.size() == 1 ? text.front().unicode() - u'0' : -1;
    const bool isOne = digit >= 0 && digit < core::kMailSecurity.choices;
    return isOne ? MailSecurity(digit) : MailSecurity::Unknown;
}

// Nobody where the key is missing.
QString userOf(const QString& text)
{
    return text == core::kMissingValue ? QString() : text;
}

} // namespace

void readMailSettings(MailSettings& settings)
{
    settings.MailServerName = core::setting(core::kMailServer);
    settings.MailServerPort = portOf(core::setting(core::kMailPort), settings.MailServerPort);
    settings.MailFromAddress = core::setting(core::kMailAddress);
    const bool classic = core::setting(core::kClassic);
    settings.security = classic ? MailSecurity::None : securityOf(core::setting(kSecurityText));
    settings.user = classic ? QString() : userOf(core::setting(core::kMailUser));
}

} // namespace mail
