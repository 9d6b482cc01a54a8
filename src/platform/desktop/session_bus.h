#pragma once

#include <QDBusMessage>
#include <QList>
#include <QString>

namespace platform {

// Where the desktop's portal is found.
inline const QString kPortalService = QStringLiteral("org.freedesktop.portal.Desktop");
inline const QString kPortalPath = QStringLiteral("/org/freedesktop/portal/desktop");

// The answers of calls on the session bus, an error where there is no bus, nobody by that name, or
// no answer within a few seconds. The calls go out in their order and wait together; events don't
// run meanwhile.
[[nodiscard]] QList<QDBusMessage> answersOnBus(const QList<QDBusMessage>& calls);
[[nodiscard]] QDBusMessage answerOnBus(const QDBusMessage& call);

[[nodiscard]] bool isGood(const QDBusMessage& answer);

} // namespace platform
