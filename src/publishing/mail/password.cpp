#include "publishing/mail/password.h"

#include "platform/desktop/dialogs.h"
#include "platform/desktop/pump.h"
#include "platform/desktop/secret_store.h"
#include "publishing/mail/email_address.h"
#include "publishing/mail/mail_settings.h"

namespace mail {

namespace {

// As both come back from the settings file.
platform::SecretName nameOf(const QString& server, const QString& user)
{
    return {withoutBlanks(server), withoutBlanks(user)};
}

} // namespace

std::optional<QString> passwordFor(const MailSettings& settings)
{
    if (settings.security == MailSecurity::None || settings.security == MailSecurity::Unknown ||
        settings.user.isEmpty()) {
        return QString();
    }
    if (auto kept = platform::keptSecret(nameOf(settings.MailServerName, settings.user))) {
        return kept;
    }
    if (platform::isClosing()) {
        return std::nullopt;
    }
    return platform::dialogs().askPassword(
        QStringLiteral("Password of %1 at %2:").arg(settings.user, settings.MailServerName),
        QStringLiteral("Send E-mail"));
}

bool keepPassword(const QString& server, const QString& user, const QString& password)
{
    return platform::keepSecret(nameOf(server, user), password);
}

} // namespace mail
