#pragma once

#include <QString>
#include <optional>

// Passwords in the desktop's secret service (org.freedesktop.secrets: GNOME's and KDE's keyrings
// and others). They are nowhere else: where a desktop has no such service, nothing is kept.
namespace platform {

// What a password is for.
struct SecretName {
    QString server;
    QString user;
};

// All of these let events run while the service answers, which may first ask the user to unlock it;
// they end without a result when the program closes.

// Nothing where none is kept, or the service can't be reached, or stays locked.
[[nodiscard]] std::optional<QString> keptSecret(const SecretName& name);

// Takes the place of one that is kept under the name already. False where it couldn't be kept.
[[nodiscard]] bool keepSecret(const SecretName& name, const QString& secret);

} // namespace platform
