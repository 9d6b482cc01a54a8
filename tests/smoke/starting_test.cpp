#include "smoke/smoke_fixture.h"

using namespace smoke;

class Starting : public SmokeTest {};

TEST_F(Starting, ShowsPicturesWhosePathsAreTyped)
{
    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    const WindowParts parts(session.inside());

    openByPath(session, tree.path("pics/c.pcx"));
    EXPECT_TRUE(colourAppears(parts.viewerSide(), kBlue, kPcxSize));
    EXPECT_TRUE(textAppears(parts.statusBar(), QStringLiteral("c.pcx")));
    EXPECT_TRUE(textAppears(parts.statusBar(), QStringLiteral("1.00 Kb")));
    EXPECT_TRUE(textAppears(parts.statusBar(), QStringLiteral("64      Pixel")));

    openByPath(session, tree.path("pics/a.jpg"));
    EXPECT_TRUE(colourAppears(parts.viewerSide(), kRed, kJpegSize));
    EXPECT_TRUE(textAppears(parts.statusBar(), QStringLiteral("a.jpg")));
    EXPECT_EQ(session.close(), 0);
}

TEST_F(Starting, LeavesNoTraceOfASecondStart)
{
    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    ASSERT_TRUE(tilesAppear(WindowParts(session.inside())));
    const std::string before = tree.content("app/config.ini");
    EXPECT_EQ(runToItsEnd({tree.path("pics/b.jpg")}), 0);
    EXPECT_EQ(session.windowCount(), 1);
    EXPECT_EQ(tree.content("app/config.ini"), before);
    EXPECT_TRUE(session.isRunning());
    EXPECT_EQ(session.close(), 0);
}
