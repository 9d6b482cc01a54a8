#include "platform/desktop/session_bus.h"

#include <QDBusConnection>
#include <QDBusPendingCall>

namespace platform {

namespace {

constexpr int kPatience = 3000; // milliseconds

} // namespace

QList<QDBusMessage> answersOnBus(const QList<QDBusMessage>& calls)
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    QList<QDBusPendingCall> pending;
    for (const QDBusMessage& call : calls) {
        pending.append(bus.asyncCall(call, kPatience));
    }
    QList<QDBusMessage> answers;
    for (QDBusPendingCall& call : pending) {
        call.waitForFinished();
        answers.append(call.reply());
    }
    return answers;
}

QDBusMessage answerOnBus(const QDBusMessage& call)
{
    return answersOnBus({call}).first();
}

bool isGood(const QDBusMessage& answer)
{
    return answer.type() == QDBusMessage::ReplyMessage;
}

} // namespace platform
