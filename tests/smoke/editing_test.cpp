#include "platform/picture_loader.h"
#include "platform/picture_saver.h"
#include "smoke/smoke_fixture.h"

#include <QPainter>
#include <filesystem>

using namespace smoke;

namespace {

// Halves of whole 16 x 16 blocks, so that JPEG blurs no edge between them.
constexpr QSize kSize{256, 128};
constexpr QSize kHalf{256, 64};
constexpr QSize kScaledHalf{128, 32};

enum class Format { Bmp, Gif, Jpeg };

} // namespace

class Editing : public SmokeTest {
protected:
    void SetUp() override
    {
        SmokeTest::SetUp();
        QImage image(kSize, QImage::Format_RGB32);
        image.fill(kBlue);
        QPainter(&image).fillRect(QRect(QPoint(), kHalf), kRed);
        ASSERT_TRUE(platform::savePicture(platform::Picture(image), tree.path("two.bmp")));
    }

    // Waits for red and blue halves of this size in the viewer, the first one on top.
    static bool halvesAppear(const WindowParts& parts, QColor top, QColor bottom, QSize half)
    {
        return waitUntil([&] {
            const QImage shot = screen();
            const QRect upper = boundsOf(shot, parts.viewer(), top);
            const QRect lower = boundsOf(shot, parts.viewer(), bottom);
            return upper.size() == half && lower.size() == half &&
                   upper.bottom() + 1 == lower.top() && upper.left() == lower.left();
        });
    }

    // The separate editor's stand-in keeps what it finds when it starts.
    void placeEditor() const
    {
        tree.add({"app/Tesselia.exe", "#!/bin/sh\n"
                                      "cd '" +
                                          tree.native("") +
                                          "'\n"
                                          "cp app/temp.bmp seen.bmp\n"
                                          "cp app/config.ini seen.ini\n"
                                          "touch seen.done\n"});
        std::filesystem::permissions(tree.native("app/Tesselia.exe"),
                                     std::filesystem::perms::owner_all);
    }

    static void saveAs(const DesktopSession& session, const QString& path, Format format)
    {
        session.keys({QStringLiteral("alt+f"), QStringLiteral("s")});
        ASSERT_TRUE(session.dialogOpens());
        session.key(QStringLiteral("alt+t"));
        for (int i = 0; i < static_cast<int>(format); ++i) {
            session.key(QStringLiteral("Down"));
        }
        session.key(QStringLiteral("alt+n"));
        session.type(path);
        session.key(QStringLiteral("Return"));
    }
};

TEST_F(Editing, FlipsTakesItBackAndScales)
{
    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    const WindowParts parts(session.inside());
    openByPath(session, tree.path("two.bmp"));
    ASSERT_TRUE(halvesAppear(parts, kRed, kBlue, kHalf));
    session.click(parts.viewer().center());
    session.key(QStringLiteral("v"));
    EXPECT_TRUE(halvesAppear(parts, kBlue, kRed, kHalf));
    session.key(QStringLiteral("z"));
    EXPECT_TRUE(halvesAppear(parts, kRed, kBlue, kHalf));

    session.keys({QStringLiteral("alt+i"), QStringLiteral("s")});
    ASSERT_TRUE(session.dialogOpens());
    session.keys({QStringLiteral("alt+w"), QStringLiteral("ctrl+a")});
    session.type(QStringLiteral("128"));
    session.key(QStringLiteral("Return"));
    ASSERT_TRUE(session.dialogsAreClosed());
    EXPECT_TRUE(halvesAppear(parts, kRed, kBlue, kScaledHalf));
    EXPECT_EQ(session.close(), 0);
}
