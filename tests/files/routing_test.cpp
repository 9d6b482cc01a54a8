#include "files/routing.h"

#include "core/player_window.h"
#include "core/state.h"
#include "core/window_registry.h"
#include "formats/pcx_files.h"
#include "platform/desktop/pointer.h"
#include "platform/pictures/picture_saver.h"
#include "support/fake_main_window.h"
#include "support/temp_tree.h"

#include <QWidget>
#include <gtest/gtest.h>

namespace {

const QString kBlanks = QStringLiteral("     ");

class FakePlayer : public QWidget, public core::PlayerWindow {
public:
    FakePlayer(QStringList& log, QString name)
        : m_log(log)
        , m_name(std::move(name))
    {
    }
    void openPath(const QString& path) override
    {
        m_log.append(m_name + QStringLiteral(" opens ") + path);
    }

private:
    QStringList& m_log;
    QString m_name;
};

class RoutingTest : public testing::Test {
protected:
    RoutingTest()
    {
        QImage image(20, 10, QImage::Format_RGB32);
        image.fill(Qt::red);
        EXPECT_TRUE(platform::savePicture(platform::Picture(image), tree.path("pics/red.bmp")));
        EXPECT_TRUE(platform::savePicture(platform::Picture(image), tree.path("pics/red.jpg")));
    }

    void addPlayer(core::Window window)
    {
        core::windows().add(
            window, [this, window] { return new FakePlayer(main.log, core::windowName(window)); });
    }

    void TearDown() override
    {
        for (const core::Window window :
             {core::Window::FlashP, core::Window::MpegForm, core::Window::FrmBrowser}) {
            core::windows().unload(window);
            core::windows().add(window, [] { return nullptr; });
        }
        core::state() = {};
    }

    support::TempTree tree{{"pics/"},
                           {"pics/text.png", "no picture"},
                           {"pics/a.pcx", greyPcx(4, 2)},
                           {"pics/x.iff", "FORM"},
                           {"pics/m.avi", "RIFF"}};
    support::FakeMainWindow main;
};

} // namespace

TEST_F(RoutingTest, LoadsAPictureAndTellsNameAndSize)
{
    files::goEnter(main, main, tree.path("pics/red.bmp"));
    EXPECT_EQ(main.log, QStringList{QStringLiteral("viewer picture 20x10")});
    EXPECT_EQ(main.statusBar.panel(core::Panel::FileName), QStringLiteral("red.bmp") + kBlanks);
    EXPECT_EQ(main.statusBar.panel(core::Panel::FileSize), QStringLiteral("654 Bytes") + kBlanks);
    EXPECT_EQ(main.statusBar.panel(core::Panel::Width), QString());
}

TEST_F(RoutingTest, LoadsByContentWhateverTheName)
{
    files::goEnter(main, main, tree.path("pics/red.jpg"));
    EXPECT_EQ(main.log, QStringList{QStringLiteral("viewer picture 20x10")});
}

TEST_F(RoutingTest, KeepsTheOldPictureWhenAFileIsNone)
{
    for (const char* name : {"pics/text.png", "pics/x.iff"}) {
        main.log.clear();
        files::goEnter(main, main, tree.path(name));
        EXPECT_TRUE(main.log.isEmpty()) << name;
        EXPECT_EQ(main.statusBar.panel(core::Panel::FileName),
                  platform::fileNameOf(tree.path(name)) + kBlanks);
    }
    EXPECT_EQ(main.statusBar.panel(core::Panel::FileSize), QStringLiteral("4 Bytes") + kBlanks);
}

TEST_F(RoutingTest, SendsOwnFormatsToTheDecoders)
{
    const QString path = tree.path("pics/a.pcx");
    files::goEnter(main, main, path);
    EXPECT_EQ(main.log, QStringList{QStringLiteral("viewer picture 4x2")});
    EXPECT_EQ(main.statusBar.panel(core::Panel::FileName), QStringLiteral("a.pcx") + kBlanks);
    EXPECT_EQ(main.statusBar.panel(core::Panel::Width), QStringLiteral("4      Pixel"));
    main.log.clear();
    files::clickXiala(main, main, path);
    EXPECT_EQ(main.log, (QStringList{QStringLiteral("viewer emptied"),
                                     QStringLiteral("viewer picture 4x2")}));
}

TEST_F(RoutingTest, PassesOverAMissingFile)
{
    main.statusBar.setPanel(core::Panel::FileSize, QStringLiteral("before"));
    files::goEnter(main, main, tree.path("pics/none.bmp"));
    EXPECT_TRUE(main.log.isEmpty());
    EXPECT_EQ(main.statusBar.panel(core::Panel::FileSize), QStringLiteral("before"));
    EXPECT_EQ(main.statusBar.panel(core::Panel::FileName), QStringLiteral("none.bmp") + kBlanks);
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(RoutingTest, OpensFlashFilesAndWritesTheField)
{
    addPlayer(core::Window::FlashP);
    const QString path = QStringLiteral("/p/film.swf");
    files::goEnter(main, main, path);
    EXPECT_EQ(main.log, QStringList{QStringLiteral("FlashP opens ") + path});
    EXPECT_TRUE(core::windows().find(core::Window::FlashP)->isVisible());
    EXPECT_EQ(main.xiala, path);
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(RoutingTest, OpensMediaAndTellsTheFacts)
{
    addPlayer(core::Window::MpegForm);
    const QString path = tree.path("pics/m.avi");
    main.image1.resize(30, 40);
    files::goEnter(main, main, path);
    EXPECT_EQ(main.log, QStringList{QStringLiteral("MpegForm opens ") + path});
    EXPECT_TRUE(core::windows().find(core::Window::MpegForm)->isVisible());
    EXPECT_EQ(main.xiala, path);
    EXPECT_EQ(main.statusBar.panel(core::Panel::FileName), QStringLiteral("m.avi") + kBlanks);
    EXPECT_EQ(main.statusBar.panel(core::Panel::Width), QStringLiteral("30 Pixel"));
    EXPECT_EQ(main.statusBar.panel(core::Panel::Height), QStringLiteral("40 Pixel"));
}

TEST_F(RoutingTest, MakesTheWebWindowAnewForASecondPage)
{
    addPlayer(core::Window::FrmBrowser);
    files::goEnter(main, main, QStringLiteral("/p/a.htm"));
    const QPointer<QWidget> first = core::windows().find(core::Window::FrmBrowser);
    core::state().BrowserOpen = true;
    files::goEnter(main, main, QStringLiteral("/p/b.html"));
    EXPECT_NE(core::windows().find(core::Window::FrmBrowser), first);
    EXPECT_EQ(main.log, (QStringList{QStringLiteral("FrmBrowser opens /p/a.htm"),
                                     QStringLiteral("FrmBrowser opens /p/b.html")}));
}

TEST_F(RoutingTest, EndsQuietlyWhereAPlayerIsMissing)
{
    for (const char* path : {"/p/a.swf", "/p/a.avi", "/p/a.htm"}) {
        files::goEnter(main, main, QString::fromLatin1(path));
        EXPECT_EQ(main.xiala, QString::fromLatin1(path));
    }
    EXPECT_TRUE(main.log.isEmpty());
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(RoutingTest, TriesTheLoaderForEverythingElseAndRemembersTheFile)
{
    const QString path = tree.path("pics/red.bmp");
    files::routePath(main, main, path);
    EXPECT_EQ(main.log, QStringList{QStringLiteral("viewer picture 20x10")});
    EXPECT_EQ(core::state().CurrentFile, path);
    EXPECT_EQ(main.xiala, path);
    files::goEnter(main, main, QStringLiteral("/p/a.vod"));
    EXPECT_EQ(main.xiala, QStringLiteral("/p/a.vod"));
}
