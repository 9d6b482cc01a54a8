#include "platform/desktop/secret_store.h"

#include "platform/desktop/bus_service.h"
#include "platform/desktop/pump.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QTimer>
#include <atomic>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <utility>

using platform::keepSecret;
using platform::keptSecret;

namespace {

using Attributes = QMap<QString, QString>;
using Paths = QList<QDBusObjectPath>;

const QString kService = QStringLiteral("org.freedesktop.secrets");
const QString kPromptPath = QStringLiteral("/org/freedesktop/secrets/prompt/1");
const QString kItemPath = QStringLiteral("/org/freedesktop/secrets/collection/login/1");

enum class User { Unlocks, Dismisses, IsAway };

// A keyring of one item, which may be locked and then asks its user.
class Keyring {
public:
    Keyring()
    {
        qDBusRegisterMetaType<Attributes>();
        EXPECT_TRUE(m_service->isThere());
    }

    std::atomic<bool> locked = false;
    std::atomic<bool> asksItself = false; // ahead of each item that it keeps
    std::atomic<bool> broken = false;     // answers with what nobody asked for
    std::atomic<User> user = User::Unlocks;
    std::atomic<int> prompts = 0;

    void leave() { m_service.reset(); }

private:
    std::optional<QDBusMessage> answer(const QDBusMessage& call)
    {
        if (broken) {
            return call.createReply(QStringLiteral("nonsense"));
        }
        const QString member = call.member();
        return member == "OpenSession"   ? openSession(call)
               : member == "SearchItems" ? search(call)
               : member == "Unlock"      ? unlock(call)
               : member == "Prompt"      ? prompt(call)
               : member == "CreateItem"  ? create(call)
               : member == "GetSecret"   ? secret(call)
                                         : call.createReply();
    }

    static QDBusMessage openSession(const QDBusMessage& call)
    {
        return call.createReply({QVariant::fromValue(QDBusVariant(QString())),
                                 QVariant::fromValue(QDBusObjectPath("/session/1"))});
    }

    QDBusMessage search(const QDBusMessage& call) const
    {
        const auto asked = qdbus_cast<Attributes>(call.arguments().at(0));
        const Paths found = !m_secret.isNull() && asked == m_attributes
                                ? Paths{QDBusObjectPath(kItemPath)}
                                : Paths();
        return call.createReply({QVariant::fromValue(locked ? Paths() : found),
                                 QVariant::fromValue(locked ? found : Paths())});
    }

    static QDBusMessage unlock(const QDBusMessage& call)
    {
        return call.createReply(
            {QVariant::fromValue(Paths()), QVariant::fromValue(QDBusObjectPath(kPromptPath))});
    }

    QDBusMessage prompt(const QDBusMessage& call)
    {
        ++prompts;
        if (user != User::IsAway) {
            locked = user == User::Dismisses;
            keepWaiting();
            QDBusMessage done = QDBusMessage::createSignal(
                kPromptPath, QStringLiteral("org.freedesktop.Secret.Prompt"),
                QStringLiteral("Completed"));
            done << (user == User::Dismisses)
                 << QVariant::fromValue(QDBusVariant(QStringLiteral("")));
            QDBusConnection(kService).send(done);
        }
        return call.createReply();
    }

    QDBusMessage create(const QDBusMessage& call)
    {
        if (locked) {
            return call.createErrorReply(QStringLiteral("org.freedesktop.Secret.Error.IsLocked"),
                                         QString());
        }
        const auto properties = qdbus_cast<QVariantMap>(call.arguments().at(0));
        m_attributes = qdbus_cast<Attributes>(
            properties.value(QStringLiteral("org.freedesktop.Secret.Item.Attributes")));
        const auto sent = call.arguments().at(1).value<QDBusArgument>();
        QDBusObjectPath session;
        QByteArray parameters;
        sent.beginStructure();
        sent >> session >> parameters >> m_waiting;
        if (!asksItself) {
            keepWaiting();
        }
        return call.createReply(
            {QVariant::fromValue(QDBusObjectPath(asksItself ? "/" : kItemPath)),
             QVariant::fromValue(QDBusObjectPath(asksItself ? kPromptPath : "/"))});
    }

    void keepWaiting()
    {
        const QByteArray waiting = std::exchange(m_waiting, {});
        if (!locked && !waiting.isNull()) {
            m_secret = waiting;
        }
    }

    QDBusMessage secret(const QDBusMessage& call) const
    {
        QDBusArgument sent;
        sent.beginStructure();
        sent << QDBusObjectPath("/session/1") << QByteArray() << m_secret
             << QStringLiteral("text/plain");
        sent.endStructure();
        return call.createReply(QVariant::fromValue(sent));
    }

    Attributes m_attributes;
    QByteArray m_secret;
    QByteArray m_waiting; // for the user's yes
    std::unique_ptr<BusService> m_service = std::make_unique<BusService>(
        kService, [this](const QDBusMessage& call) { return answer(call); });
};

const platform::SecretName kName{QStringLiteral("mail.example.com"), QStringLiteral("me")};
const QString kSecret = QStringLiteral("s\u00e9same ");

} // namespace

TEST(SecretStore, HandsBackWhatItKeeps)
{
    const Keyring keyring;
    EXPECT_EQ(keptSecret(kName), std::nullopt);
    EXPECT_TRUE(keepSecret(kName, QStringLiteral("old")));
    EXPECT_TRUE(keepSecret(kName, kSecret));
    EXPECT_EQ(keptSecret(kName), kSecret);
    EXPECT_EQ(keptSecret({kName.server, QStringLiteral("you")}), std::nullopt);
    EXPECT_EQ(keptSecret({QStringLiteral("other.example.com"), kName.user}), std::nullopt);
    EXPECT_EQ(keyring.prompts, 0);
}

TEST(SecretStore, LetsTheUserUnlockIt)
{
    Keyring keyring;
    keyring.locked = true;
    EXPECT_TRUE(keepSecret(kName, kSecret));
    keyring.locked = true;
    EXPECT_EQ(keptSecret(kName), kSecret);
    EXPECT_EQ(keyring.prompts, 2);
}

TEST(SecretStore, HasNothingWhereTheUserDismissesTheQuestion)
{
    Keyring keyring;
    EXPECT_TRUE(keepSecret(kName, kSecret));
    keyring.locked = true;
    keyring.user = User::Dismisses;
    EXPECT_EQ(keptSecret(kName), std::nullopt);
    EXPECT_FALSE(keepSecret(kName, kSecret));
}

TEST(SecretStore, AsksNotTwiceWhereTheUserDismissesTheQuestion)
{
    Keyring keyring;
    keyring.asksItself = true;
    EXPECT_TRUE(keepSecret(kName, kSecret));
    EXPECT_EQ(keptSecret(kName), kSecret);
    EXPECT_EQ(keyring.prompts, 1);
    keyring.user = User::Dismisses;
    EXPECT_FALSE(keepSecret(kName, QStringLiteral("other")));
    EXPECT_EQ(keyring.prompts, 2);
}

TEST(SecretStore, EndsItsQuestionWithTheProgramAndWithTheService)
{
    Keyring keyring;
    EXPECT_TRUE(keepSecret(kName, kSecret));
    keyring.locked = true;
    keyring.user = User::IsAway;
    QTimer::singleShot(200, [] { platform::beginClosing(); });
    EXPECT_EQ(keptSecret(kName), std::nullopt);
    platform::resetClosing();
    QTimer::singleShot(200, [&] { keyring.leave(); });
    EXPECT_EQ(keptSecret(kName), std::nullopt);
    EXPECT_EQ(keyring.prompts, 2);
}

TEST(SecretStore, KeepsNothingWithoutAService)
{
    EXPECT_EQ(keptSecret(kName), std::nullopt);
    EXPECT_FALSE(keepSecret(kName, kSecret));
}

TEST(SecretStore, StandsAnswersThatMakeNoSense)
{
    Keyring keyring;
    keyring.broken = true;
    EXPECT_EQ(keptSecret(kName), std::nullopt);
    EXPECT_FALSE(keepSecret(kName, kSecret));
}
