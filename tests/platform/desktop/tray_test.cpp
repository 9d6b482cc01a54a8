#include "platform/desktop/tray.h"

#include <QApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QIcon>
#include <QPixmap>
#include <QProcess>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace {

constexpr int kAWhile = 300; // milliseconds, in which a click would have arrived
const QString kItem = QStringLiteral("org.kde.StatusNotifierItem");
const QString kItemPath = QStringLiteral("/StatusNotifierItem");
const QString kMenu = QStringLiteral("com.canonical.dbusmenu");
const QString kProperties = QStringLiteral("org.freedesktop.DBus.Properties");

struct Entry {
    int id = 0;
    QString label;
    QString type;
};

Entry readEntry(const QDBusArgument& argument, QVariantList& children)
{
    Entry entry;
    QVariantMap properties;
    argument.beginStructure();
    argument >> entry.id >> properties >> children;
    argument.endStructure();
    entry.label = properties.value(QStringLiteral("label")).toString().remove(QLatin1Char('_'));
    entry.type = properties.value(QStringLiteral("type")).toString();
    return entry;
}

// Of the menu itself, as an answer tells them.
std::vector<Entry> entriesOf(const QDBusMessage& layout)
{
    QVariantList children;
    readEntry(layout.arguments().value(1).value<QDBusArgument>(), children);
    std::vector<Entry> entries;
    for (const QVariant& child : children) {
        QVariantList none;
        entries.push_back(readEntry(child.value<QDBusArgument>(), none));
    }
    return entries;
}

// An icon in the tray of a desktop that tells of clicks one by one.
class Tray : public testing::Test {
protected:
    Tray()
    {
        QPixmap red(16, 16);
        red.fill(Qt::red);
        QApplication::setWindowIcon(red);
        watcher.start(STAND_IN_WATCHER, {});
    }

    ~Tray() override
    {
        icon.reset();
        watcher.closeWriteChannel();
        watcher.waitForFinished();
    }

    void SetUp() override
    {
        ASSERT_EQ(nextLine(), "watching");
        icon = platform::tray().add({QStringLiteral("the tip"),
                                     {{1, "First"}, {2, ""}, {3, "Third"}},
                                     [this] { ++doubleClicks; },
                                     [this](int command) { chosen.push_back(command); }});
        ASSERT_NE(icon, nullptr);
        service = nextLine();
        ASSERT_FALSE(service.isEmpty());
    }

    QString nextLine()
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return watcher.canReadLine(); }));
        return QString::fromUtf8(watcher.readLine()).trimmed();
    }

    // Calls over the bus what is in this process, so events have to run meanwhile.
    [[nodiscard]] QDBusMessage call(const QString& path, const QString& interface,
                                    const QString& method, const QVariantList& arguments) const
    {
        QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
        message.setArguments(arguments);
        const QDBusPendingCall pending = bus.asyncCall(message);
        EXPECT_TRUE(QTest::qWaitFor([&] { return pending.isFinished(); }));
        return pending.reply();
    }

    void activate() const { static_cast<void>(call(kItemPath, kItem, "Activate", {10, 10})); }

    [[nodiscard]] QVariant property(const char* name) const
    {
        const QDBusMessage reply = call(kItemPath, kProperties, "Get", {kItem, name});
        return reply.arguments().value(0).value<QDBusVariant>().variant();
    }

    QProcess watcher;
    QDBusConnection bus =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("panel"));
    std::unique_ptr<platform::TrayIcon> icon;
    QString service;
    int doubleClicks = 0;
    std::vector<int> chosen;
};

} // namespace

TEST_F(Tray, CountsTwoClicksAsADoubleClick)
{
    activate();
    activate();
    EXPECT_TRUE(QTest::qWaitFor([this] { return doubleClicks == 1; }));
}

TEST_F(Tray, DoesNothingAtASingleClick)
{
    activate();
    QTest::qWait(QApplication::doubleClickInterval() + kAWhile);
    activate();
    QTest::qWait(kAWhile);
    EXPECT_EQ(doubleClicks, 0);
}

TEST_F(Tray, TakesOneActivationForADoubleClickOnADesktopThatCountsItself)
{
    qputenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
    activate();
    EXPECT_TRUE(QTest::qWaitFor([this] { return doubleClicks == 1; }));
    qunsetenv("XDG_CURRENT_DESKTOP");
}

TEST_F(Tray, TellsItsTip)
{
    const auto tip = property("ToolTip").value<QDBusArgument>();
    QString title;
    tip.beginStructure();
    QString iconName;
    tip >> iconName;
    tip.beginArray();
    while (!tip.atEnd()) {
        tip.beginStructure();
        int width = 0;
        int height = 0;
        QByteArray pixels;
        tip >> width >> height >> pixels;
        tip.endStructure();
    }
    tip.endArray();
    tip >> title;
    EXPECT_EQ(title, "the tip");
}

TEST_F(Tray, RunsWhatIsChosenFromTheMenu)
{
    const QString menu = property("Menu").value<QDBusObjectPath>().path();
    ASSERT_FALSE(menu.isEmpty());
    const std::vector<Entry> entries =
        entriesOf(call(menu, kMenu, QStringLiteral("GetLayout"), {0, -1, QStringList()}));
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(entries[0].label, "First");
    EXPECT_EQ(entries[1].type, "separator");
    EXPECT_EQ(entries[2].label, "Third");
    static_cast<void>(call(menu, kMenu, "Event",
                           {entries[2].id, QStringLiteral("clicked"),
                            QVariant::fromValue(QDBusVariant(QString())), 0U}));
    EXPECT_TRUE(QTest::qWaitFor([this] { return chosen == std::vector{3}; }));
}

TEST_F(Tray, LeavesTheBusWithTheIcon)
{
    icon.reset();
    const QDBusMessage reply = call(kItemPath, kItem, "Activate", {10, 10});
    EXPECT_EQ(reply.type(), QDBusMessage::ErrorMessage);
    EXPECT_EQ(doubleClicks, 0);
}
