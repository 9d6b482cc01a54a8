#include "smoke/smoke_fixture.h"

using namespace smoke;

class Modes : public SmokeTest {
protected:
    // The overview shows the picture once more, in the viewer's upper right corner.
    [[nodiscard]] static bool overviewAppears(const WindowParts& parts, QColor colour)
    {
        return waitUntil([&] {
            const QRect bounds = boundsOf(screen(), parts.viewer(), colour);
            return bounds.width() > kJpegSize.width() &&
                   bounds.right() > parts.viewer().right() - 250;
        });
    }
};

TEST_F(Modes, SwitchToThePictureAloneAndBack)
{
    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    const WindowParts parts(session.inside());
    ASSERT_TRUE(tilesAppear(parts));
    openByPath(session, tree.path("pics/b.jpg"));
    ASSERT_TRUE(colourAppears(parts.viewer(), kGreen, kJpegSize));

    session.click(parts.viewer().center());
    session.key(QStringLiteral("Escape"));
    EXPECT_TRUE(colourAppears(parts.workArea(), kGreen, kJpegSize));
    EXPECT_TRUE(boundsOf(screen(), parts.workArea(), kRed).isNull());
    const QPoint middle = boundsOf(screen(), parts.workArea(), kGreen).center();
    EXPECT_NEAR(middle.x(), parts.workArea().center().x(), 5);
    EXPECT_TRUE(waitUntil([this] { return stored("ObcBrowse") == QStringLiteral("0"); }));

    session.key(QStringLiteral("Escape"));
    EXPECT_TRUE(tilesAppear(parts));
    EXPECT_TRUE(colourAppears(parts.viewer(), kGreen, kJpegSize));
    EXPECT_TRUE(waitUntil([this] { return stored("ObcBrowse") == QStringLiteral("1"); }));
    EXPECT_EQ(session.close(), 0);
}

TEST_F(Modes, ComeBackAfterARestart)
{
    {
        DesktopSession session;
        ASSERT_TRUE(session.isUp());
        const WindowParts parts(session.inside());
        ASSERT_TRUE(tilesAppear(parts));
        openByPath(session, tree.path("pics/b.jpg"));
        ASSERT_TRUE(colourAppears(parts.viewer(), kGreen, kJpegSize));
        session.click(parts.viewer().center());
        session.key(QStringLiteral("F2"));
        EXPECT_TRUE(overviewAppears(parts, kGreen));
        session.key(QStringLiteral("Escape"));
        EXPECT_TRUE(waitUntil([&] { return boundsOf(screen(), parts.tiles(), kRed).isNull(); }));
        EXPECT_EQ(session.close(), 0);
    }
    EXPECT_EQ(stored("Panview"), QStringLiteral("0"));
    EXPECT_EQ(stored("ObcBrowse"), QStringLiteral("0"));

    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    const WindowParts parts(session.inside());
    openByPath(session, tree.path("pics/b.jpg"));
    EXPECT_TRUE(overviewAppears(parts, kGreen));
    EXPECT_TRUE(boundsOf(screen(), parts.tiles(), kRed).isNull());
    session.click(parts.viewer().center());
    session.key(QStringLiteral("F2"));
    EXPECT_TRUE(colourAppears(parts.workArea(), kGreen, kJpegSize));
    EXPECT_EQ(session.close(), 0);
    EXPECT_EQ(stored("Panview"), QStringLiteral("1"));
}
