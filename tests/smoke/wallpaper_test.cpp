#include "platform/os/registry.h"
#include "platform/pictures/picture_loader.h"
#include "smoke/smoke_fixture.h"

#include <QProcess>

using namespace smoke;

// On a desktop that keeps its settings in a file.
class Wallpaper : public SmokeTest {
protected:
    void SetUp() override
    {
        SmokeTest::SetUp();
        tree.setVariable("XDG_CURRENT_DESKTOP", "GNOME");
        tree.setVariable("GSETTINGS_BACKEND", "keyfile");
    }

    static QString setting(const char* key)
    {
        QProcess gsettings;
        gsettings.start(QStringLiteral("gsettings"),
                        {QStringLiteral("get"), QStringLiteral("org.gnome.desktop.background"),
                         QLatin1String(key)});
        gsettings.waitForFinished();
        return QString::fromUtf8(gsettings.readAllStandardOutput()).trimmed();
    }

    // From the Tools menu, by its keys.
    static void choose(const DesktopSession& session, const QStringList& entry)
    {
        session.keys(QStringList{QStringLiteral("alt+t"), QStringLiteral("w")} + entry);
    }
};

TEST_F(Wallpaper, IsThePictureInTheStyleChosenInTheMenu)
{
    const QString file = tree.path("data/vistara/Kestrin Wallpaper.bmp");
    const QString address =
        "'file://" + tree.path("data/vistara/Kestrin%20Wallpaper.bmp") + QStringLiteral("'");
    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    const WindowParts parts(session.inside());
    openByPath(session, tree.path("pics/b.jpg"));
    ASSERT_TRUE(colourAppears(parts.viewer(), kGreen, kJpegSize));
    session.click(parts.viewer().center());

    choose(session, {QStringLiteral("Down"), QStringLiteral("Down"), QStringLiteral("Return")});
    EXPECT_TRUE(waitUntil([&] { return setting("picture-uri-dark") == address; }));
    EXPECT_EQ(setting("picture-uri"), address);
    EXPECT_EQ(setting("picture-options"), "'stretched'");
    EXPECT_EQ(platform::registryValue("Control Panel\\Desktop", "WallpaperStyle"), QString("2"));
    const auto shown = platform::loadPicture(tree.path("pics/b.jpg"));
    const auto wallpaper = platform::loadPicture(file);
    ASSERT_TRUE(shown && wallpaper);
    EXPECT_EQ(wallpaper->flattened(), shown->flattened());

    choose(session, {QStringLiteral("Down"), QStringLiteral("Return")});
    EXPECT_TRUE(waitUntil([&] { return setting("picture-options") == "'wallpaper'"; }));
    EXPECT_TRUE(waitUntil([&] { return setting("picture-uri-dark") == address; }));
    EXPECT_EQ(session.close(), 0);
    EXPECT_FALSE(tree.exists("app/Wallpaper.bmp"));
}
