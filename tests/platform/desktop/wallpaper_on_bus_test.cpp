#include "platform/desktop/bus_service.h"
#include "platform/desktop/wallpaper.h"
#include "support/temp_tree.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusUnixFileDescriptor>
#include <QDBusVariant>
#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QScreen>
#include <QTest>
#include <csignal>
#include <gtest/gtest.h>
#include <string>

using platform::showWallpaper;
using platform::WallpaperStyle;

namespace {

constexpr int kPatience = 20000; // milliseconds

std::string output(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(kPatience)) << program.toStdString();
    EXPECT_EQ(process.readAllStandardError().toStdString(), "");
    return process.readAllStandardOutput().trimmed().toStdString();
}

struct Styled {
    WallpaperStyle style;
    const char* gsettings;
    const char* xfconf;
    const char* plasma;
};

constexpr Styled kStyled[] = {{WallpaperStyle::Center, "'centered'", "1", "6"},
                              {WallpaperStyle::Tile, "'wallpaper'", "2", "3"},
                              {WallpaperStyle::Stretch, "'stretched'", "3", "0"}};

} // namespace

class WallpaperOnBus : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QDBusConnection::sessionBus().isConnected());
        tree.setVariable("GSETTINGS_BACKEND", "keyfile");
        isOn("");
    }

    void isOn(const std::string& desktop) { tree.setVariable("XDG_CURRENT_DESKTOP", desktop); }

    [[nodiscard]] bool shows(std::optional<WallpaperStyle> style = WallpaperStyle::Center) const
    {
        return showWallpaper({tree.path("a \xC3\xA4 'b'.bmp"), style});
    }

    [[nodiscard]] QString path() const { return tree.path("a \xC3\xA4 'b'.bmp"); }
    [[nodiscard]] std::string address() const
    {
        return "file://" + tree.native("a%20%C3%A4%20%27b%27.bmp");
    }

    support::TempTree tree{{"a \xC3\xA4 'b'.bmp", "the pixels"}};
};

// The real programs over the desktops' real schemas.
class WallpaperSettings : public WallpaperOnBus {
protected:
    static std::string value(const char* schema, const char* key)
    {
        return output(QStringLiteral("gsettings"),
                      {QStringLiteral("get"), QLatin1String(schema), QLatin1String(key)});
    }
};

TEST_F(WallpaperSettings, OfGnomeTellBothLooksAndTheStyle)
{
    const char* const schema = "org.gnome.desktop.background";
    for (const char* const desktop : {"GNOME", "Budgie:GNOME", "Pantheon", "Unity"}) {
        isOn(desktop);
        for (const Styled& row : kStyled) {
            EXPECT_TRUE(shows(row.style));
            EXPECT_EQ(value(schema, "picture-uri"), "'" + address() + "'");
            EXPECT_EQ(value(schema, "picture-uri-dark"), "'" + address() + "'");
            EXPECT_EQ(value(schema, "picture-options"), row.gsettings);
        }
    }
    EXPECT_TRUE(shows(std::nullopt));
    EXPECT_EQ(value(schema, "picture-options"), "'stretched'");
}

TEST_F(WallpaperSettings, OfMateTellThePath)
{
    const char* const schema = "org.mate.background";
    isOn("MATE");
    for (const Styled& row : kStyled) {
        EXPECT_TRUE(shows(row.style));
        EXPECT_EQ(value(schema, "picture-filename"), "\"" + path().toStdString() + "\"");
        EXPECT_EQ(value(schema, "picture-options"), row.gsettings);
    }
}

TEST_F(WallpaperSettings, OfCinnamonTellTheAddress)
{
    const char* const schema = "org.cinnamon.desktop.background";
    isOn("X-Cinnamon");
    for (const Styled& row : kStyled) {
        EXPECT_TRUE(shows(row.style));
        EXPECT_EQ(value(schema, "picture-uri"), "'" + address() + "'");
        EXPECT_EQ(value(schema, "picture-options"), row.gsettings);
    }
}

namespace {

const QString kFirst = QStringLiteral("/backdrop/screen0/monitorHDMI-1/workspace0/");
const QString kSecond = QStringLiteral("/backdrop/screen0/monitorHDMI-1/workspace1/");
const QString kOther = QStringLiteral("/backdrop/screen0/monitoreDP-1/workspace0/");
const QString kOld = QStringLiteral("/backdrop/screen0/monitor0/");

// What a monitor's first workspace is told, in order.
class ToldPictures : public QObject {
    Q_OBJECT
public:
    ToldPictures()
    {
        QDBusConnection::sessionBus().connect(
            QStringLiteral("org.xfce.Xfconf"), QStringLiteral("/org/xfce/Xfconf"),
            QStringLiteral("org.xfce.Xfconf"), QStringLiteral("PropertyChanged"), this,
            SLOT(changed(QString, QString, QDBusVariant)));
    }

    QStringList told;

public slots:
    void changed(const QString& /*channel*/, const QString& property, const QDBusVariant& value)
    {
        const QString picture = value.variant().toString();
        // What was stored before may still be told.
        if (property == kFirst + QStringLiteral("last-image") && picture != u"/old.png") {
            told.append(picture);
        }
    }
};

} // namespace

// The real service.
class WallpaperOfXfce : public WallpaperOnBus {
protected:
    void SetUp() override
    {
        WallpaperOnBus::SetUp();
        isOn("XFCE");
        xfconf({"-p", "/", "-r", "-R"});
    }

    static std::string xfconf(const QStringList& arguments)
    {
        return output(QStringLiteral("xfconf-query"),
                      QStringList{"-c", "xfce4-desktop"} + arguments);
    }
    static void store(const QString& property, const char* type, const QString& value)
    {
        xfconf({"-p", property, "-n", "-t", type, "-s", value});
    }
    static std::string value(const QString& property) { return xfconf({"-p", property}); }
    static void expectOnAllScreens(const QString& picture)
    {
        ASSERT_FALSE(QGuiApplication::screens().isEmpty());
        for (const QScreen* const screen : QGuiApplication::screens()) {
            const QString place =
                QStringLiteral("/backdrop/screen0/monitor%1/workspace0/").arg(screen->name());
            EXPECT_EQ(value(place + "last-image"), picture.toStdString());
            EXPECT_EQ(value(place + "image-style"), "1");
        }
    }
    // The file that a stored path leads to, however it is spelt.
    static std::optional<QString> fileAt(const QString& property)
    {
        return platform::canonicalPath(platform::fromNative(value(property)));
    }
};

TEST_F(WallpaperOfXfce, IsToldToEveryMonitorAndWorkspace)
{
    for (const QString& place : {kFirst, kSecond, kOther}) {
        store(place + "last-image", "string", "/old.png");
        store(place + "image-style", "int", "5");
        store(place + "color-style", "int", "1");
    }
    store(kOld + "image-path", "string", "/older.png");
    store("/desktop-icons/style", "int", "2");
    for (const Styled& row : kStyled) {
        EXPECT_TRUE(shows(row.style));
        for (const QString& place : {kFirst, kSecond, kOther}) {
            EXPECT_EQ(fileAt(place + "last-image"), path());
            EXPECT_EQ(value(place + "image-style"), row.xfconf);
            EXPECT_EQ(value(place + "color-style"), "1");
        }
        EXPECT_EQ(fileAt(kOld + "image-path"), path());
        EXPECT_EQ(value(kOld + "image-style"), row.xfconf);
    }
    EXPECT_EQ(value("/desktop-icons/style"), "2");
}

TEST_F(WallpaperOfXfce, KeepsItsStyleWhenNoneIsAskedFor)
{
    store(kFirst + "last-image", "string", "/old.png");
    store(kFirst + "image-style", "int", "5");
    EXPECT_TRUE(shows(std::nullopt));
    EXPECT_EQ(value(kFirst + "last-image"), path().toStdString());
    EXPECT_EQ(value(kFirst + "image-style"), "5");
}

TEST_F(WallpaperOfXfce, IsToldToTheScreensWhereNothingIsStored)
{
    EXPECT_TRUE(shows());
    expectOnAllScreens(path());
}

TEST_F(WallpaperOfXfce, IsToldToAScreenThatIsNewBesideAStoredOne)
{
    store(kFirst + "last-image", "string", "/old.png");
    EXPECT_TRUE(shows());
    EXPECT_EQ(value(kFirst + "last-image"), path().toStdString());
    expectOnAllScreens(path());
}

TEST_F(WallpaperOfXfce, IsToldToAScreenInItsStoredPlacesAlone)
{
    const QString monitor = QStringLiteral("/backdrop/screen0/monitor%1/")
                                .arg(QGuiApplication::primaryScreen()->name());
    store(monitor + "workspace3/last-image", "string", "/old.png");
    EXPECT_TRUE(shows());
    EXPECT_EQ(value(monitor + "workspace3/last-image"), path().toStdString());
    EXPECT_EQ(xfconf({"-l"}).find((monitor + "workspace0").toStdString()), std::string::npos);
}

TEST_F(WallpaperOfXfce, ChangesForEachPictureInTheSameFile)
{
    store(kFirst + "last-image", "string", "/old.png");
    const ToldPictures pictures;
    for (int shown = 1; shown <= 3; ++shown) {
        EXPECT_TRUE(shows());
        EXPECT_TRUE(QTest::qWaitFor([&] { return pictures.told.size() >= shown; }, kPatience));
    }
    ASSERT_EQ(pictures.told.size(), 3);
    EXPECT_NE(pictures.told[0], pictures.told[1]);
    EXPECT_NE(pictures.told[1], pictures.told[2]);
    for (const QString& told : pictures.told) {
        EXPECT_EQ(platform::canonicalPath(told), path());
    }
}

class WallpaperOfPlasma : public WallpaperOnBus {
protected:
    void SetUp() override
    {
        WallpaperOnBus::SetUp();
        isOn("KDE");
    }

    static std::string script(const std::string& lines)
    {
        return "var all = desktops();\n"
               "for (var i = 0; i < all.length; ++i) {\n"
               "    var shown = all[i];\n"
               "    shown.wallpaperPlugin = \"org.kde.image\";\n"
               "    shown.currentConfigGroup = [\"Wallpaper\", \"org.kde.image\", \"General\"];\n" +
               lines + "}\n";
    }
    static std::string picture(const std::string& address)
    {
        return "    shown.writeConfig(\"Image\", \"" + address + "\");\n";
    }
    static std::string style(const std::string& number)
    {
        return "    shown.writeConfig(\"FillMode\", " + number + ");\n";
    }

    const QString name = QStringLiteral("org.kde.plasmashell");
};

TEST_F(WallpaperOfPlasma, IsWrittenByAScriptForEachDesktop)
{
    BusService plasma(name, [](const QDBusMessage& call) { return call.createReply(QString()); });
    ASSERT_TRUE(plasma.isThere());
    for (const Styled& row : kStyled) {
        EXPECT_TRUE(shows(row.style));
        const std::vector<QDBusMessage> calls = plasma.calls();
        ASSERT_GE(calls.size(), 2U);
        const QDBusMessage& first = calls[calls.size() - 2];
        const QDBusMessage& second = calls[calls.size() - 1];
        for (const QDBusMessage& call : {first, second}) {
            EXPECT_EQ(call.path(), "/PlasmaShell");
            EXPECT_EQ(call.interface(), "org.kde.PlasmaShell");
            EXPECT_EQ(call.member(), "evaluateScript");
            EXPECT_EQ(call.signature(), "s");
        }
        EXPECT_EQ(first.arguments().value(0).toString().toStdString(), script(picture("")));
        EXPECT_EQ(second.arguments().value(0).toString().toStdString(),
                  script(style(row.plasma) + picture(address())));
    }
}

TEST_F(WallpaperOfPlasma, KeepsItsStyleWhenNoneIsAskedFor)
{
    BusService plasma(name, [](const QDBusMessage& call) { return call.createReply(QString()); });
    EXPECT_TRUE(shows(std::nullopt));
    ASSERT_EQ(plasma.calls().size(), 2U);
    EXPECT_EQ(plasma.calls().back().arguments().value(0).toString().toStdString(),
              script(picture(address())));
}

TEST_F(WallpaperOfPlasma, IsLeftWhenNobodyAnswers)
{
    BusService plasma(name, [](const QDBusMessage&) { return std::nullopt; });
    EXPECT_FALSE(shows());
    EXPECT_EQ(plasma.calls().size(), 1U);
}

class WallpaperOfThePortal : public WallpaperOnBus {
protected:
    struct Asked {
        QString method;
        std::string bytes; // of the file
        QVariantMap options;
    };

    // Answers as the portal does, with the path of the request.
    std::optional<QDBusMessage> answer(const QDBusMessage& call)
    {
        const auto descriptor = call.arguments().value(1).value<QDBusUnixFileDescriptor>();
        QFile file;
        EXPECT_TRUE(file.open(descriptor.fileDescriptor(), QIODevice::ReadOnly));
        asked.push_back({call.interface() + u'.' + call.member(), file.readAll().toStdString(),
                         qdbus_cast<QVariantMap>(call.arguments().value(2))});
        return call.createReply(QVariant::fromValue(QDBusObjectPath("/request/1")));
    }

    void expectAskedOnce() const
    {
        ASSERT_EQ(asked.size(), 1U);
        EXPECT_EQ(asked[0].method, "org.freedesktop.portal.Wallpaper.SetWallpaperFile");
        EXPECT_EQ(asked[0].bytes, "the pixels");
        EXPECT_EQ(asked[0].options,
                  QVariantMap({{"show-preview", false}, {"set-on", "background"}}));
    }

    std::vector<Asked> asked;
    const QString name = QStringLiteral("org.freedesktop.portal.Desktop");
};

TEST_F(WallpaperOfThePortal, IsAskedForOnOtherDesktops)
{
    const BusService portal(name, [this](const QDBusMessage& call) { return answer(call); });
    ASSERT_TRUE(portal.isThere());
    for (const char* const other : {"", "Unheard"}) {
        asked.clear();
        isOn(other);
        EXPECT_TRUE(shows());
        expectAskedOnce();
    }
}

TEST_F(WallpaperOfThePortal, IsAskedForWhereTheDesktopsOwnWayFails)
{
    const BusService portal(name, [this](const QDBusMessage& call) { return answer(call); });
    ASSERT_TRUE(portal.isThere());
    tree.setVariable("PATH", "/nowhere");
    for (const char* const desktop : {"GNOME", "MATE", "LXQt", "KDE"}) {
        asked.clear();
        isOn(desktop);
        EXPECT_TRUE(shows());
        expectAskedOnce();
    }
}

TEST_F(WallpaperOfThePortal, IsNotAskedForWhereTheDesktopTakesIt)
{
    const BusService portal(name, [this](const QDBusMessage& call) { return answer(call); });
    isOn("GNOME");
    EXPECT_TRUE(shows());
    EXPECT_TRUE(asked.empty());
}

TEST_F(WallpaperOfThePortal, MayRefuseOrKeepSilent)
{
    {
        BusService portal(name, [](const QDBusMessage& call) {
            return call.createErrorReply(QDBusError::AccessDenied, QStringLiteral("no"));
        });
        EXPECT_FALSE(shows());
        EXPECT_EQ(portal.calls().size(), 1U);
    }
    BusService portal(name, [](const QDBusMessage&) { return std::nullopt; });
    EXPECT_FALSE(shows());
    EXPECT_EQ(portal.calls().size(), 1U);
}

// The bus stands still, as one does whose machine is out of memory.
TEST_F(WallpaperOnBus, IsLeftWhenTheBusStandsStill)
{
    const uint bus = QDBusConnection::sessionBus().interface()->servicePid(
        QStringLiteral("org.freedesktop.DBus"));
    ASSERT_GT(bus, 1U);
    ASSERT_EQ(::kill(pid_t(bus), SIGSTOP), 0);
    for (const char* const desktop : {"", "KDE", "XFCE"}) {
        isOn(desktop);
        EXPECT_FALSE(shows()) << desktop;
    }
    EXPECT_EQ(::kill(pid_t(bus), SIGCONT), 0);
}

#include "wallpaper_on_bus_test.moc"
