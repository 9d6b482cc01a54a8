#include "smoke/smoke_fixture.h"

#include <QImage>
#include <filesystem>

using namespace smoke;

// The browser is a stand-in that notes what it is asked to show.
class Albums : public SmokeTest {
protected:
    void SetUp() override
    {
        SmokeTest::SetUp();
        tree.add({"bin/xdg-open", "#!/bin/sh\necho \"$*\" > '" + tree.native("asked") + "'\n"});
        std::filesystem::permissions(tree.native("bin/xdg-open"),
                                     std::filesystem::perms::owner_all);
        tree.setVariable("PATH", tree.native("bin") + ":" + qgetenv("PATH").toStdString());
        std::filesystem::create_directories(tree.native("home"));
        std::filesystem::rename(tree.native("pics"), tree.native("home/pics"));
        settings["SpeciFolder"] = tree.native("home/pics");
        writeSettings();
    }

    [[nodiscard]] QImage albumPicture(const std::string& name) const
    {
        return QImage(tree.path("home/Web/pics/" + name));
    }
};

TEST_F(Albums, AreMadeOfTheFolderShownAndOpenInTheBrowser)
{
    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    const WindowParts parts(session.inside());
    ASSERT_TRUE(tilesAppear(parts));
    session.click(parts.viewer().center());
    session.keys({QStringLiteral("alt+f"), QStringLiteral("n"), QStringLiteral("c")});
    EXPECT_TRUE(waitUntil([this] { return tree.exists("asked"); }));
    EXPECT_TRUE(waitUntil([this] {
        return tree.content("asked") == "file://" + tree.native("home/Web/pics/index.htm") + "\n";
    }));
    EXPECT_EQ(albumPicture("tn_a.jpg").size(), QSize(160, 120));
    EXPECT_EQ(albumPicture("OriginalPics/b.jpg").size(), kJpegSize);
    EXPECT_TRUE(isNear(albumPicture("OriginalPics/b.jpg").pixel(9, 9), kGreen));
    // The loader of the system takes no PCX, so that the picture before stands in.
    EXPECT_TRUE(isNear(albumPicture("tn_c.jpg").pixel(9, 9), kGreen));
    EXPECT_TRUE(tree.content("home/Web/pics/OriginalPics/c.htm").ends_with("</Html>\r\n"));
    EXPECT_FALSE(tree.exists("app/Tmp.bmp"));
    EXPECT_TRUE(tilesAppear(parts));
    EXPECT_EQ(session.close(), 0);
}
