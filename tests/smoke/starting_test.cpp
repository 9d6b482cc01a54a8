#include "platform/os/registry.h"
#include "smoke/smoke_fixture.h"

#include <fstream>
#include <iterator>

using namespace smoke;

class Starting : public SmokeTest {};

TEST_F(Starting, ShowsPicturesWhosePathsAreTyped)
{
    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    const WindowParts parts(session.inside());

    openByPath(session, tree.path("pics/c.pcx"));
    EXPECT_TRUE(colourAppears(parts.viewer(), kBlue, kPcxSize));
    EXPECT_TRUE(textAppears(parts.statusBar(), QStringLiteral("c.pcx")));
    EXPECT_TRUE(textAppears(parts.statusBar(), QStringLiteral("1.00 Kb")));
    EXPECT_TRUE(textAppears(parts.statusBar(), QStringLiteral("64      Pixel")));

    openByPath(session, tree.path("pics/a.jpg"));
    EXPECT_TRUE(colourAppears(parts.viewer(), kRed, kJpegSize));
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

TEST_F(Starting, ClearsWhatACrashLeft)
{
    const QString marker = QStringLiteral("Software\\Corvane\\Qlink");
    const QString name = QStringLiteral("Brelmark");
    {
        DesktopSession session;
        ASSERT_TRUE(session.isUp());
        openByPath(session, tree.path("pics/c.pcx"));
        EXPECT_TRUE(waitUntil([this] { return tree.exists("app/temp.bmp"); }));
        tree.add({"app/openTemp/left.jpg", "opened"});
        const WindowParts parts(session.inside());
        EXPECT_TRUE(colourAppears(parts.viewer(), kBlue, kPcxSize));
        session.click(parts.viewer().center());
        session.key(QStringLiteral("v"));
        EXPECT_TRUE(waitUntil([this] { return tree.exists("app/Frametemp.bmp"); }));
        session.kill();
    }
    EXPECT_EQ(platform::registryValue(marker, name), QStringLiteral("1"));
    EXPECT_TRUE(tree.exists("app/openTemp/left.jpg"));
    EXPECT_TRUE(tree.exists("app/temp.bmp"));
    EXPECT_TRUE(tree.exists("app/Frametemp.bmp"));

    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    EXPECT_TRUE(tree.exists("app/openTemp/left.jpg"));
    EXPECT_FALSE(tree.exists("app/Frametemp.bmp"));
    EXPECT_EQ(session.close(), 0);
    EXPECT_EQ(platform::registryValue(marker, name), std::nullopt);
    EXPECT_FALSE(tree.exists("app/openTemp/left.jpg"));
    EXPECT_TRUE(tree.exists("app/openTemp"));
    EXPECT_FALSE(tree.exists("app/temp.bmp"));
}

TEST_F(Starting, LoadsNoLibraryThatTheFirstPictureDoesntNeed)
{
    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    const WindowParts parts(session.inside());
    ASSERT_TRUE(tilesAppear(parts));
    openByPath(session, tree.path("pics/a.jpg"));
    ASSERT_TRUE(colourAppears(parts.viewer(), kRed, kJpegSize));

    std::ifstream file("/proc/" + std::to_string(session.processId()) + "/maps");
    const std::string maps{std::istreambuf_iterator<char>(file), {}};
    ASSERT_NE(maps.find("libQt6Widgets"), std::string::npos);
    for (const char* library : {"libmpv", "libQt6WebEngine", "libsane", "libQt6Multimedia",
                                "libwmf", "libemf2svg", "libQt6PrintSupport"}) {
        EXPECT_EQ(maps.find(library), std::string::npos) << library;
    }
    EXPECT_EQ(session.close(), 0);
}

TEST_F(Starting, WritesAScreenshotOnRequestAndEnds)
{
    tree.setVariable("VISTARA_SCREENSHOT", tree.native("shot.png"));
    EXPECT_EQ(runToItsEnd({}), 0);
    const QImage shot(tree.path("shot.png"));
    ASSERT_FALSE(shot.isNull());
    EXPECT_GT(shot.width(), screen().width() * 9 / 10);
    for (const QColor& colour : {kRed, kGreen, kBlue}) {
        EXPECT_FALSE(boundsOf(shot, shot.rect(), colour).isNull());
    }
}
