#include "smoke/smoke_fixture.h"

using namespace smoke;

class Preferences : public SmokeTest {
protected:
    static QSize tileOf(const WindowParts& parts, QColor colour)
    {
        return boundsOf(screen(), parts.tiles(), colour).size();
    }

    // By the last entry of the Edit menu.
    [[nodiscard]] static bool opens(const DesktopSession& session)
    {
        session.keys({QStringLiteral("alt+e"), QStringLiteral("Up"), QStringLiteral("Return")});
        return DesktopSession::windowOpens(QStringLiteral("Preferences"));
    }
};

TEST_F(Preferences, ChangeTheThumbnailsAndTheStartFolderByKeys)
{
    const QString folder = tree.path("pics");
    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    const WindowParts parts(session.inside());
    ASSERT_TRUE(tilesAppear(parts));
    const QSize before = tileOf(parts, kGreen);
    ASSERT_TRUE(opens(session));
    session.keys({QStringLiteral("Down"), QStringLiteral("Down"), QStringLiteral("Down"),
                  QStringLiteral("alt+z"), QStringLiteral("Left"), QStringLiteral("Left"),
                  QStringLiteral("Left")});
    EXPECT_TRUE(waitUntil([&] {
        const QSize now = tileOf(parts, kGreen);
        return !now.isEmpty() && now.width() < before.width();
    }));
    EXPECT_TRUE(waitUntil([this] { return stored("BrowserSize") == QStringLiteral("30"); }));

    session.keys({QStringLiteral("alt+f"), QStringLiteral("ctrl+a")});
    session.type(tree.path("home"));
    EXPECT_EQ(stored("SpeciFolder"), folder);
    session.key(QStringLiteral("Return"));
    ASSERT_TRUE(session.dialogsAreClosed());
    EXPECT_TRUE(waitUntil([this] { return stored("SpeciFolder") == tree.path("home"); }));
    EXPECT_EQ(session.close(), 0);
}

TEST_F(Preferences, TakeAFolderFromTheTree)
{
    tree.add({"pics/inner/", ""});
    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    const WindowParts parts(session.inside());
    ASSERT_TRUE(tilesAppear(parts));
    ASSERT_TRUE(opens(session));
    session.keys({QStringLiteral("Down"), QStringLiteral("Down"), QStringLiteral("Down"),
                  QStringLiteral("alt+w")});
    ASSERT_TRUE(DesktopSession::windowOpens(QStringLiteral("Choose a Folder")));
    session.keys({QStringLiteral("Right"), QStringLiteral("Right"), QStringLiteral("Return")});
    ASSERT_TRUE(DesktopSession::windowOpens(QStringLiteral("Preferences")));
    EXPECT_EQ(stored("SpeciFolder"), tree.path("pics"));
    session.key(QStringLiteral("alt+s"));
    ASSERT_TRUE(session.dialogsAreClosed());
    EXPECT_TRUE(waitUntil([this] { return stored("SpeciFolder") == tree.path("pics/inner"); }));
    EXPECT_EQ(session.close(), 0);
}
