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
    settings.security =
        classic ? MailSecurity::None : MailSecurity(core::setting(core::kMailSecurity));
    settings.user = classic ? QString() : userOf(core::setting(core::kMailUser));
}

} // namespace mail
