#include "platform/pictures/picture_loader.h"
#include "platform/pictures/picture_saver.h"
#include "smoke/smoke_fixture.h"

#include <QPainter>
#include <filesystem>

using namespace smoke;

namespace {

constexpr QSize kHalf{256, 64};

QImage halves(QColor top, QColor bottom)
{
    QImage image(kHalf.width(), 2 * kHalf.height(), QImage::Format_RGB32);
    image.fill(bottom);
    QPainter(&image).fillRect(QRect(QPoint(), kHalf), top);
    return image;
}

} // namespace

// The separate editor is a program of its own, and this one only leaves files for it.
class Handoff : public SmokeTest {
protected:
    void SetUp() override
    {
        SmokeTest::SetUp();
        ASSERT_TRUE(
            platform::savePicture(platform::Picture(halves(kRed, kBlue)), tree.path("two.bmp")));
        // The stand-in keeps what it finds when it starts, with its times, and then spoils what it
        // was given.
        tree.add({"app/Tesselia.exe", "#!/bin/sh\n"
                                      "cd '" +
                                          tree.native("") +
                                          "'\n"
                                          "number=$(ls -d found* 2>/dev/null | wc -l)\n"
                                          "mkdir unfinished\n"
                                          "cp -p app/Frametemp.bmp app/temp.bmp app/config.ini "
                                          "unfinished\n"
                                          "cp pics/b.jpg app/temp.bmp\n"
                                          "mv unfinished found$number\n"});
        std::filesystem::permissions(tree.native("app/Tesselia.exe"),
                                     std::filesystem::perms::owner_all);
    }

    [[nodiscard]] bool editorStarts(const std::string& found) const
    {
        return waitUntil([&] { return tree.exists(found); });
    }

    [[nodiscard]] QImage picture(const std::string& name) const
    {
        const auto found = platform::loadPicture(tree.path(name));
        return found ? found->image().convertToFormat(QImage::Format_RGB32) : QImage();
    }

    [[nodiscard]] std::filesystem::file_time_type written(const std::string& name) const
    {
        return std::filesystem::last_write_time(tree.native(name));
    }

    static bool halvesAppear(const WindowParts& parts, QColor top, QColor bottom)
    {
        return waitUntil([&] {
            const QImage shot = screen();
            const QRect upper = boundsOf(shot, parts.viewer(), top);
            const QRect lower = boundsOf(shot, parts.viewer(), bottom);
            return upper.width() == kHalf.width() && lower.width() == kHalf.width() &&
                   upper.top() < lower.top();
        });
    }
};

TEST_F(Handoff, LeavesPictureUndoAndNumberBeforeTheEditorStarts)
{
    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    const WindowParts parts(session.inside());
    openByPath(session, tree.path("two.bmp"));
    ASSERT_TRUE(halvesAppear(parts, kRed, kBlue));
    session.click(parts.viewer().center());
    session.key(QStringLiteral("v"));
    ASSERT_TRUE(halvesAppear(parts, kBlue, kRed));

    // By its key no number is told, and the picture for undoing stays that of the last edit.
    session.key(QStringLiteral("F10"));
    ASSERT_TRUE(editorStarts("found0"));
    EXPECT_EQ(picture("found0/temp.bmp"), halves(kBlue, kRed));
    EXPECT_EQ(picture("found0/Frametemp.bmp"), halves(kRed, kBlue));
    EXPECT_EQ(tree.content("found0/config.ini").find("Filter="), std::string::npos);

    session.click(parts.viewer().center());
    session.key(QStringLiteral("F2"));
    ASSERT_TRUE(waitUntil([this] { return stored("Panview") == QStringLiteral("0"); }));
    // The fourth entry, behind a separator: Blur.
    session.keys({QStringLiteral("alt+l"), QStringLiteral("Down"), QStringLiteral("Down"),
                  QStringLiteral("Return")});
    ASSERT_TRUE(editorStarts("found1"));
    EXPECT_EQ(picture("found1/temp.bmp"), halves(kBlue, kRed));
    EXPECT_EQ(picture("found1/Frametemp.bmp"), halves(kBlue, kRed));
    const std::string config = tree.content("found1/config.ini");
    EXPECT_NE(config.find("\nFilter=2\n"), std::string::npos);
    EXPECT_NE(config.find("\nPanview=1\n"), std::string::npos);
    EXPECT_LE(written("found1/Frametemp.bmp"), written("found1/config.ini"));
    EXPECT_LE(written("found1/config.ini"), written("found1/temp.bmp"));
    EXPECT_LT(written("found0/temp.bmp"), written("found1/temp.bmp"));

    // Nothing comes back by itself, whatever the editor does with the file.
    EXPECT_NE(tree.content("app/temp.bmp"), tree.content("found1/temp.bmp"));
    EXPECT_TRUE(halvesAppear(parts, kBlue, kRed));
    session.key(QStringLiteral("F10"));
    ASSERT_TRUE(editorStarts("found2"));
    EXPECT_EQ(picture("found2/temp.bmp"), halves(kBlue, kRed));
    EXPECT_NE(tree.content("found2/config.ini").find("\nFilter=2\n"), std::string::npos);
    EXPECT_EQ(session.close(), 0);
}
