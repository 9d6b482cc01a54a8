#include "platform/desktop/secret_store.h"

#include "platform/desktop/pump.h"
#include "platform/desktop/secret_prompt.h"
#include "platform/desktop/session_bus.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QEventLoop>

namespace platform {

using Attributes = QMap<QString, QString>;

// A secret as it travels: (oayays).
struct SentSecret {
    QDBusObjectPath session;
    QByteArray parameters; // empty: it isn't encrypted on its way, which is the user's own bus
    QByteArray value;
    QString contentType;
};

QDBusArgument& operator<<(QDBusArgument& argument, const SentSecret& secret)
{
    argument.beginStructure();
    argument << secret.session << secret.parameters << secret.value << secret.contentType;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, SentSecret& secret)
{
    argument.beginStructure();
    argument >> secret.session >> secret.parameters >> secret.value >> secret.contentType;
    argument.endStructure();
    return argument;
}

} // namespace platform

Q_DECLARE_METATYPE(platform::SentSecret)

namespace platform {

namespace {

using Paths = QList<QDBusObjectPath>;

const QString kPath = QStringLiteral("/org/freedesktop/secrets");
const QString kDefaultCollection = QStringLiteral("/org/freedesktop/secrets/aliases/default");
const QString kInterface = QStringLiteral("org.freedesktop.Secret.");
const QString kSchema = QStringLiteral("org.vistara.Mail");

constexpr int kPatience = 25'000; // milliseconds; the service may have to start

void registerTypes()
{
    qDBusRegisterMetaType<Attributes>();
    qDBusRegisterMetaType<SentSecret>();
}

// The answer of the service; an error in its place when the program closes meanwhile.
QDBusMessage ask(const QString& path, const char* interface, const char* method,
                 const QVariantList& arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        kSecretService, path, kInterface + QLatin1String(interface), QLatin1String(method));
    call.setArguments(arguments);
    const QDBusPendingCall pending = QDBusConnection::sessionBus().asyncCall(call, kPatience);
    QDBusPendingCallWatcher watcher(pending);
    QEventLoop loop;
    while (!watcher.isFinished() && !isClosing()) {
        loop.processEvents(QEventLoop::WaitForMoreEvents);
    }
    return watcher.isFinished()
               ? watcher.reply()
               : QDBusMessage::createError(QDBusError::NoReply, QStringLiteral("closing"));
}

Attributes attributesOf(const SecretName& name)
{
    return {{QStringLiteral("xdg:schema"), kSchema},
            {QStringLiteral("server"), name.server},
            {QStringLiteral("user"), name.user}};
}

// True once the prompt, if there is one, was answered by the user.
bool passes(const QDBusObjectPath& prompt)
{
    return prompt.path() == QStringLiteral("/") || SecretPrompt(prompt.path()).run();
}

bool unlock(const QDBusObjectPath& locked)
{
    const QDBusPendingReply<Paths, QDBusObjectPath> reply =
        ask(kPath, "Service", "Unlock", {QVariant::fromValue(Paths{locked})});
    return reply.isValid() && passes(reply.argumentAt<1>());
}

// The conversation with the service in which secrets are handed over.
class Session {
public:
    Session()
    {
        registerTypes();
        const QDBusPendingReply<QDBusVariant, QDBusObjectPath> reply =
            ask(kPath, "Service", "OpenSession",
                {QStringLiteral("plain"), QVariant::fromValue(QDBusVariant(QString()))});
        if (reply.isValid()) {
            m_path = reply.argumentAt<1>();
        }
    }
    ~Session()
    {
        if (isOpen()) {
            QDBusConnection::sessionBus().send(QDBusMessage::createMethodCall(
                kSecretService, m_path.path(), kInterface + QLatin1String("Session"),
                QStringLiteral("Close")));
        }
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    [[nodiscard]] bool isOpen() const { return !m_path.path().isEmpty(); }
    [[nodiscard]] const QDBusObjectPath& path() const { return m_path; }

private:
    QDBusObjectPath m_path;
};

// The first item under a name, unlocked.
std::optional<QDBusObjectPath> itemOf(const SecretName& name)
{
    const QDBusPendingReply<Paths, Paths> found =
        ask(kPath, "Service", "SearchItems", {QVariant::fromValue(attributesOf(name))});
    if (!found.isValid()) {
        return std::nullopt;
    }
    const Paths unlocked = found.argumentAt<0>();
    const Paths locked = found.argumentAt<1>();
    if (!unlocked.isEmpty()) {
        return unlocked.first();
    }
    return !locked.isEmpty() && unlock(locked.first()) ? std::optional(locked.first())
                                                       : std::nullopt;
}

enum class Creation { Done, Refused, Dismissed };

Creation createItem(const Session& session, const SecretName& name, const QString& secret)
{
    const QVariantMap properties{{QStringLiteral("org.freedesktop.Secret.Item.Label"),
                                  QStringLiteral("Mail of %1 at %2").arg(name.user, name.server)},
                                 {QStringLiteral("org.freedesktop.Secret.Item.Attributes"),
                                  QVariant::fromValue(attributesOf(name))}};
    const SentSecret sent{session.path(), {}, secret.toUtf8(), QStringLiteral("text/plain")};
    const QDBusPendingReply<QDBusObjectPath, QDBusObjectPath> reply =
        ask(kDefaultCollection, "Collection", "CreateItem",
            {properties, QVariant::fromValue(sent), true});
    if (!reply.isValid()) {
        return Creation::Refused;
    }
    return passes(reply.argumentAt<1>()) ? Creation::Done : Creation::Dismissed;
}

} // namespace

std::optional<QString> keptSecret(const SecretName& name)
{
    const Session session;
    if (!session.isOpen()) {
        return std::nullopt;
    }
    const std::optional<QDBusObjectPath> item = itemOf(name);
    if (!item) {
        return std::nullopt;
    }
    const QDBusPendingReply<SentSecret> reply =
        ask(item->path(), "Item", "GetSecret", {QVariant::fromValue(session.path())});
    return reply.isValid() ? std::optional(QString::fromUtf8(reply.value().value)) : std::nullopt;
}

// A locked collection may refuse the item instead of asking for itself. A user who has said no
// isn't asked again.
bool keepSecret(const SecretName& name, const QString& secret)
{
    const Session session;
    if (!session.isOpen()) {
        return false;
    }
    Creation creation = createItem(session, name, secret);
    if (creation == Creation::Refused && unlock(QDBusObjectPath(kDefaultCollection))) {
        creation = createItem(session, name, secret);
    }
    return creation == Creation::Done;
}

} // namespace platform
