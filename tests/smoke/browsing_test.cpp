#include "smoke/smoke_fixture.h"

#include <set>

using namespace smoke;

class Browsing : public SmokeTest {
protected:
    [[nodiscard]] static QPoint tile(const WindowParts& parts, QColor colour)
    {
        return boundsOf(screen(), parts.tiles(), colour).center();
    }
};

TEST_F(Browsing, ShowsTheTileClickedAndStepsByTheWheel)
{
    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    const WindowParts parts(session.inside());
    ASSERT_TRUE(tilesAppear(parts));

    session.click(tile(parts, kGreen));
    EXPECT_TRUE(colourAppears(parts.viewer(), kGreen, kJpegSize));
    EXPECT_TRUE(textAppears(parts.statusBar(), QStringLiteral("b.jpg")));
    EXPECT_TRUE(textAppears(parts.statusBar(), QStringLiteral("400 Pixel")));
    EXPECT_TRUE(textAppears(parts.field(), tree.path("pics/b.jpg"), Ink::Field));
    EXPECT_EQ(tree.content("app/xialafile.txt"), tree.native("pics/b.jpg") + ";");
    EXPECT_EQ(stored("Xno"), QStringLiteral("1"));

    const QPoint inViewer = parts.viewer().center();
    session.wheel(inViewer, 1);
    EXPECT_TRUE(colourAppears(parts.viewer(), kBlue, kPcxSize));
    EXPECT_TRUE(textAppears(parts.field(), tree.path("pics/c.pcx"), Ink::Field));
    session.wheel(inViewer, -2);
    EXPECT_TRUE(colourAppears(parts.viewer(), kRed, kJpegSize));
    EXPECT_TRUE(textAppears(parts.field(), tree.path("pics/a.jpg"), Ink::Field));
    EXPECT_EQ(session.close(), 0);
}

TEST_F(Browsing, OpensTheTileDoubleClicked)
{
    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    const WindowParts parts(session.inside());
    ASSERT_TRUE(tilesAppear(parts));

    session.doubleClick(tile(parts, kRed));
    EXPECT_TRUE(colourAppears(parts.viewer(), kRed, kJpegSize));
    EXPECT_TRUE(textAppears(parts.field(), tree.path("pics/a.jpg"), Ink::Field));
    EXPECT_TRUE(textAppears(parts.statusBar(), QStringLiteral("a.jpg")));
    EXPECT_EQ(session.close(), 0);
}

TEST_F(Browsing, ShowsOnePictureAfterTheOtherUntilTheShowIsStopped)
{
    constexpr int kSlideShow = 7;
    constexpr int kFaster = 11;
    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    const WindowParts parts(session.inside());
    ASSERT_TRUE(tilesAppear(parts));
    session.click(tile(parts, kBlue));
    ASSERT_TRUE(colourAppears(parts.viewer(), kBlue, kPcxSize));

    for (int seconds = 5; seconds > 1; --seconds) {
        session.click(parts.toolbarButton(kFaster));
    }
    session.click(parts.toolbarButton(kSlideShow));
    std::set<int> seen;
    EXPECT_TRUE(waitUntil([&] {
        const QImage shot = screen();
        const QColor colours[] = {kRed, kGreen, kBlue};
        for (int i = 0; i < 3; ++i) {
            if (!boundsOf(shot, parts.viewer(), colours[i]).isNull()) {
                seen.insert(i);
            }
        }
        return seen.size() == 3;
    }));
    // Stopped on a JPEG, so that the next tick would change the picture's size or its colour.
    ASSERT_TRUE(colourAppears(parts.viewer(), kGreen, kJpegSize));
    session.click(parts.toolbarButton(kSlideShow));
    ASSERT_TRUE(colourAppears(parts.viewer(), kGreen, kJpegSize));
    EXPECT_TRUE(colourStays(parts.viewer(), kGreen, kJpegSize));
    EXPECT_EQ(session.close(), 0);
}

TEST_F(Browsing, KeepsFavouritesOverARestart)
{
    {
        DesktopSession session;
        ASSERT_TRUE(session.isUp());
        const WindowParts parts(session.inside());
        ASSERT_TRUE(tilesAppear(parts));
        session.click(tile(parts, kGreen));
        ASSERT_TRUE(colourAppears(parts.viewer(), kGreen, kJpegSize));
        session.keys({QStringLiteral("alt+a"), QStringLiteral("a")});
        ASSERT_TRUE(session.dialogOpens());
        session.type(QStringLiteral("meadow"));
        session.key(QStringLiteral("Return"));
        ASSERT_TRUE(session.dialogsAreClosed());
        EXPECT_EQ(session.close(), 0);
    }
    EXPECT_EQ(tree.content("app/testfile.txt"), "meadow#" + tree.native("pics/b.jpg") + ";");
    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    const WindowParts parts(session.inside());
    ASSERT_TRUE(tilesAppear(parts));
    // The favourites stand last in their menu.
    session.keys({QStringLiteral("alt+a"), QStringLiteral("Up"), QStringLiteral("Return")});
    EXPECT_TRUE(colourAppears(parts.viewer(), kGreen, kJpegSize));
    EXPECT_EQ(session.close(), 0);
}
