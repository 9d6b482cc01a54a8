#pragma once

#include <QString>
#include <optional>

namespace mail {

struct MailSettings;

// The password that goes with the settings: empty where nobody logs in, the one in the desktop's
// secret service, else what the user types now, which is kept nowhere. Nothing when they cancel.
// Lets events run.
[[nodiscard]] std::optional<QString> passwordFor(const MailSettings& settings);

// Keeps it in the desktop's secret service. False where there is none, or it refuses.
[[nodiscard]] bool keepPassword(const QString& server, const QString& user,
                                const QString& password);

} // namespace mail
