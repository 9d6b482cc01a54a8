#include "platform/desktop/secret_prompt.h"

#include "platform/desktop/pump.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QEventLoop>
#include <utility>

namespace platform {

namespace {

const QString kPrompt = QStringLiteral("org.freedesktop.Secret.Prompt");

} // namespace

SecretPrompt::SecretPrompt(QString path)
    : m_path(std::move(path))
{
}

bool SecretPrompt::run()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.connect(kSecretService, m_path, kPrompt, QStringLiteral("Completed"), this,
                SLOT(complete(bool, QDBusVariant)));
    QDBusServiceWatcher service(kSecretService, bus, QDBusServiceWatcher::WatchForUnregistration);
    connect(&service, &QDBusServiceWatcher::serviceUnregistered, this, [this] { end(false); });
    send("Prompt", {QString()});
    QEventLoop loop;
    while (!m_ended && !isClosing()) {
        loop.processEvents(QEventLoop::WaitForMoreEvents);
    }
    if (!m_ended) {
        send("Dismiss", {});
    }
    return m_answered;
}

// A question that can't even be asked has been answered with no.
void SecretPrompt::send(const char* method, const QVariantList& arguments)
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(kSecretService, m_path, kPrompt, QLatin1String(method));
    call.setArguments(arguments);
    auto* const watcher =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        if (watcher->isError()) {
            end(false);
        }
    });
}

void SecretPrompt::complete(bool dismissed, const QDBusVariant& /*result*/)
{
    end(!dismissed);
}

void SecretPrompt::end(bool answered)
{
    if (!m_ended) {
        m_ended = true;
        m_answered = answered;
    }
}

} // namespace platform
