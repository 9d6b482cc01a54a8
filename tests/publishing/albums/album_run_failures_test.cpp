#include "publishing/albums/album_run_fixture.h"

#include "support/full_disk.h"
#include "support/ordinary_user.h"

#include <QKeyEvent>
#include <QShortcut>
#include <QTest>
#include <memory>
#include <sys/stat.h>

namespace {

class AlbumRunFailures : public AlbumRunTest {
protected:
    void addPictures(int count)
    {
        for (int k = 0; k < count; ++k) {
            addPicture("home/pics/p" + std::to_string(k) + ".bmp", qRgb(10 * k, 0, 0));
        }
    }

    // Calls a function once, at the yield before the file of that number, from 0.
    void atFile(int number, std::function<void()> handler)
    {
        atEveryYield([this, number, handler = std::move(handler)] {
            if (m_yields++ == number) {
                handler();
            }
        });
    }

    // An album whose every page is there, of so many pictures and no more.
    void expectAlbumOf(int pictures)
    {
        EXPECT_EQ(rows(), pictures);
        EXPECT_TRUE(isClosed());
        for (int k = 0; k < pictures; ++k) {
            const std::string name = "OriginalPics/p" + std::to_string(k);
            EXPECT_TRUE(page(name + ".htm").endsWith("</Html>\r\n")) << name;
            EXPECT_FALSE(picture(name + ".jpg").isNull()) << name;
        }
        const std::string behind = "p" + std::to_string(pictures);
        EXPECT_FALSE(m_tree.exists("home/Web/pics/OriginalPics/" + behind + ".htm"));
        EXPECT_FALSE(m_tree.exists("home/Web/pics/tn_" + behind + ".jpg"));
    }

    int m_yields = 0;
};

} // namespace

TEST_F(AlbumRunFailures, EndsWithoutAWordWhereWebCannotBeMade)
{
    addPictures(1);
    m_tree.add({"home/Web", "a file"});
    run();
    EXPECT_TRUE(m_dialogs.boxes.empty());
    EXPECT_TRUE(m_desktop.opened.isEmpty());
    EXPECT_TRUE(m_told.isEmpty());
    EXPECT_EQ(m_tree.content("home/Web"), "a file");
    expectAllGivenBack();
}

TEST_F(AlbumRunFailures, GoesOnWithoutAFolderOfFullPictures)
{
    addPictures(2);
    m_tree.add({"home/Web/pics/OriginalPics", "a file"});
    list().setLanguage(0);
    run();
    EXPECT_EQ(m_dialogs.boxTexts(),
              QStringList{"Kan direcory : " + m_tree.path("home/Web/pics") + "\nNiet maken"});
    EXPECT_EQ(rows(), 2);
    EXPECT_FALSE(picture("tn_p1.jpg").isNull());
    EXPECT_EQ(m_desktop.opened.size(), 1);
    expectAllGivenBack();
}

TEST_F(AlbumRunFailures, EndsWithTheListUnderTheBoxOfAFolder)
{
    addPictures(2);
    m_tree.add({"home/Web/pics/OriginalPics", "a file"});
    auto gone = std::make_unique<ThumbNailList>();
    gone->setPath(m_tree.path("home/pics"));
    m_dialogs.whileOpen = [&] { gone.reset(); };
    MakeHtmlGallery(*gone, m_tree.path("home"));
    EXPECT_FALSE(m_tree.exists("home/Web/pics/index.htm"));
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(AlbumRunFailures, LeavesAReadOnlyRootAlone)
{
    addPictures(1);
    showFolder();
    m_tree.add({"stick/"});
    ASSERT_EQ(::chmod(m_tree.native("").c_str(), 0755), 0);
    ASSERT_EQ(::chmod(m_tree.native("stick").c_str(), 0555), 0);
    {
        const support::OrdinaryUser user;
        MakeHtmlGallery(list(), m_tree.path("stick"));
    }
    EXPECT_TRUE(m_dialogs.boxes.empty());
    EXPECT_FALSE(m_tree.exists("stick/Web"));
    expectAllGivenBack();
}

// What the disk has no room for isn't there, and nothing of it is half there.
TEST_F(AlbumRunFailures, LeavesNoHalfFileOnAFullDisk)
{
    addPicture("home/pics/p0.bmp", qRgb(0, 0, 0), {1600, 1200});
    addPicture("home/pics/p1.bmp", qRgb(0, 0, 0), {16, 12});
    {
        const support::FullDisk disk(3000);
        run();
    }
    EXPECT_EQ(namesIn("home/Web/pics"),
              (QStringList{"OriginalPics/p0.htm", "OriginalPics/p1.htm", "OriginalPics/p1.jpg",
                           "index.htm", "tn_p0.jpg", "tn_p1.jpg"}));
    EXPECT_EQ(rows(), 2);
    expectAllGivenBack();
}

TEST_F(AlbumRunFailures, KeepsThePagesBeforeOnAFullDisk)
{
    addPictures(1);
    run();
    const std::string index = m_tree.content("home/Web/pics/index.htm");
    const std::string detail = m_tree.content("home/Web/pics/OriginalPics/p0.htm");
    addPictures(2);
    list().surface().File1.refresh();
    {
        const support::FullDisk disk(100);
        run();
    }
    EXPECT_EQ(m_told.size(), 2);
    EXPECT_EQ(m_tree.content("home/Web/pics/index.htm"), index);
    EXPECT_EQ(m_tree.content("home/Web/pics/OriginalPics/p0.htm"), detail);
    EXPECT_FALSE(m_tree.exists("home/Web/pics/OriginalPics/p1.htm"));
    expectAllGivenBack();
}

TEST_F(AlbumRunFailures, GoesOnWhereTheRootVanishes)
{
    addPictures(3);
    atFile(1, [this] { m_tree.remove("home/Web"); });
    m_desktop.succeeds = false;
    run();
    EXPECT_FALSE(m_tree.exists("home/Web"));
    EXPECT_EQ(m_dialogs.boxTexts(), QStringList{"Fout met openen van de browser !!"});
    expectAllGivenBack();
}

TEST_F(AlbumRunFailures, MakesAnEmptyAlbumOfAnEmptyFolder)
{
    run();
    EXPECT_EQ(rows(), 0);
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(m_told.size(), 1);
    EXPECT_EQ(namesIn("home/Web/pics"), QStringList{"index.htm"});
    expectAllGivenBack();
}

TEST_F(AlbumRunFailures, HasNoNeighboursForASinglePicture)
{
    addPictures(1);
    run();
    expectAlbumOf(1);
    EXPECT_TRUE(page("OriginalPics/p0.htm")
                    .contains("Previous | <a href=../index.htm>Index</a> | Next</font>"));
    EXPECT_TRUE(m_main.gradient.fractions.empty());
}

// Films, pages and whatever can't be read show the picture of the file before.
TEST_F(AlbumRunFailures, ShowsThePictureBeforeForFilesThatAreNone)
{
    addPicture("home/pics/p0.bmp", qRgb(0, 0, 250), {64, 48});
    m_tree.add({"home/pics/p1.avi", "film"});
    m_tree.add({"home/pics/p2.jpg", "damaged"});
    m_tree.add({"home/pics/p3.htm", "<html>"});
    m_tree.add({"home/pics/p4.gif", "GIF89a and no more"});
    addPicture("home/pics/p5.bmp", qRgb(250, 0, 0), {64, 48});
    run();
    EXPECT_EQ(rows(), 6);
    for (const char* const name : {"p1", "p2", "p3"}) {
        const QImage full = picture(std::string("OriginalPics/") + name + ".jpg");
        ASSERT_EQ(full.size(), QSize(64, 48)) << name;
        EXPECT_GT(qBlue(full.pixel(9, 9)), 200) << name;
    }
    EXPECT_EQ(m_tree.content("home/Web/pics/OriginalPics/p4.gif"), "GIF89a and no more");
    EXPECT_GT(qRed(picture("tn_p5.jpg").pixel(9, 9)), 200);
    expectAllGivenBack();
}

TEST_F(AlbumRunFailures, HasNothingToShowForAFirstFileThatIsNone)
{
    addPicture("home/pics/z.bmp");
    showFolder();
    list().Makegallery(); // leaves its last picture behind
    m_tree.add({"home/pics/a.jpg", "damaged"});
    list().surface().File1.refresh();
    run();
    EXPECT_EQ(rows(), 2);
    EXPECT_TRUE(page("index.htm").contains(R"(src="tn_a.jpg" width="0" height="0")"));
    EXPECT_TRUE(page("OriginalPics/a.htm").contains(R"(width="0" height="0")"));
    EXPECT_FALSE(m_tree.exists("home/Web/pics/OriginalPics/a.jpg"));
    EXPECT_TRUE(m_tree.exists("home/Web/pics/OriginalPics/z.jpg"));
}

// A picture larger than the loader takes, and a strip that shrinks to nothing.
TEST_F(AlbumRunFailures, GoesOnBehindPicturesOfAbsurdSizes)
{
    addPicture("home/pics/p0.bmp", qRgb(0, 250, 0), {64, 48});
    QByteArray huge(54, '\0');
    huge.replace(0, 2, "BM");
    huge[14] = 40;
    huge.replace(18, 8, QByteArray("\xFF\xFF\x0F\0\xFF\xFF\x0F\0", 8));
    huge[26] = 1;
    huge[28] = 24;
    m_tree.add({"home/pics/p1.bmp", huge.toStdString()});
    addPicture("home/pics/p2.bmp", qRgb(0, 0, 0), {30000, 2});
    addPicture("home/pics/p3.bmp", qRgb(0, 0, 0), {1, 1});
    run();
    EXPECT_EQ(rows(), 4);
    EXPECT_EQ(picture("OriginalPics/p1.jpg").size(), QSize(64, 48));
    EXPECT_EQ(picture("OriginalPics/p2.jpg").size(), QSize(30000, 2));
    EXPECT_FALSE(m_tree.exists("home/Web/pics/tn_p2.jpg"));
    EXPECT_EQ(picture("tn_p3.jpg").size(), QSize(1, 1));
    expectAllGivenBack();
}

TEST_F(AlbumRunFailures, HasTheFilesDoneBeforeACancel)
{
    addPictures(4);
    atFile(2, [this] { list().stopRunningLoop(); });
    run();
    expectAlbumOf(2);
    EXPECT_TRUE(page("OriginalPics/p1.htm").contains("| Next</font>"));
    EXPECT_EQ(m_told.size(), 1);
    EXPECT_EQ(m_desktop.opened.size(), 1);
    expectAllGivenBack();
}

TEST_F(AlbumRunFailures, IsEmptyAtACancelBeforeTheFirstFile)
{
    addPictures(4);
    atFile(0, [this] { list().stopRunningLoop(); });
    run();
    expectAlbumOf(0);
    EXPECT_EQ(m_desktop.opened.size(), 1);
    expectAllGivenBack();
}

TEST_F(AlbumRunFailures, IsWholeAtACancelAmongThePages)
{
    addPictures(3);
    atFile(4, [this] { list().stopRunningLoop(); });
    run();
    expectAlbumOf(3);
    EXPECT_EQ(m_told.size(), 1);
    expectAllGivenBack();
}

TEST_F(AlbumRunFailures, IsNotStoppedByACancelOfTheRunBefore)
{
    addPictures(2);
    state().CancelLoading = true;
    run();
    expectAlbumOf(2);
}

TEST_F(AlbumRunFailures, EndsAtEscapeExceptInClassicMode)
{
    addPictures(3);
    const auto escape = [this] {
        if (auto* const shortcut = list().window()->findChild<QShortcut*>()) {
            EXPECT_EQ(shortcut->key(), QKeySequence(Qt::Key_Escape));
            emit shortcut->activated();
        }
    };
    atFile(1, escape);
    run();
    expectAlbumOf(1);
    EXPECT_EQ(list().window()->findChild<QShortcut*>(), nullptr);
    m_config.write("Classic", "1");
    m_yields = 0;
    run();
    expectAlbumOf(3);
}

TEST_F(AlbumRunFailures, ClosesItsPagesWhenTheProgramCloses)
{
    addPictures(3);
    atFile(1, [] { platform::beginClosing(); });
    run();
    expectAlbumOf(1);
    EXPECT_TRUE(m_told.isEmpty());
    EXPECT_TRUE(m_desktop.opened.isEmpty());
    expectAllGivenBack();
}

TEST_F(AlbumRunFailures, ClosesItsPagesWhenTheProgramClosesAmongThem)
{
    addPictures(3);
    atFile(4, [] { platform::beginClosing(); });
    run();
    expectAlbumOf(3);
    EXPECT_TRUE(m_desktop.opened.isEmpty());
}

TEST_F(AlbumRunFailures, ClosesItsPagesWhenTheListGoes)
{
    addPictures(3);
    for (const int file : {1, 4}) {
        auto gone = std::make_unique<ThumbNailList>();
        gone->setPath(m_tree.path("home/pics"));
        gone->show();
        m_yields = 0;
        m_yield.disconnect();
        atFile(file, [&] { gone.reset(); });
        MakeHtmlGallery(*gone, m_tree.path("home"));
        expectAlbumOf(file == 1 ? 1 : 3);
        expectAllGivenBack();
    }
    EXPECT_TRUE(m_desktop.opened.isEmpty());
}

TEST_F(AlbumRunFailures, SurvivesTheEndOfTheListInItsEvent)
{
    addPictures(2);
    auto gone = std::make_unique<ThumbNailList>();
    gone->setPath(m_tree.path("home/pics"));
    QObject::connect(gone.get(), &ThumbNailList::HtmLGaleryCreated, &m_pane, [&] { gone.reset(); });
    MakeHtmlGallery(*gone, m_tree.path("home"));
    expectAlbumOf(2);
    expectAllGivenBack();
}

// The user looks at another folder meanwhile, and gets its tiles and the whole album.
TEST_F(AlbumRunFailures, StaysWithItsFolderWhenAnotherIsShown)
{
    addPictures(3);
    m_tree.add({"home/pics/p1.bmp", "damaged"}); // shows the picture of p0
    addPicture("home/other/x.bmp", qRgb(0, 250, 0));
    atFile(1, [this] {
        showFolder("home/other");
        list().Makegallery();
    });
    run();
    expectAlbumOf(3);
    for (const std::string folder : {"tn_", "OriginalPics/"}) {
        EXPECT_EQ(m_tree.content("home/Web/pics/" + folder + "p1.jpg"),
                  m_tree.content("home/Web/pics/" + folder + "p0.jpg"));
    }
    EXPECT_EQ(list().path(), m_tree.path("home/other"));
    EXPECT_EQ(m_told, QStringList{"1 3 " + m_tree.path("home/Web/pics/index.htm")});
    expectAllGivenBack();
}

TEST_F(AlbumRunFailures, IsTheOnlyOneWhenAnotherFolderIsShown)
{
    addPictures(3);
    addPicture("home/other/x.bmp", qRgb(0, 250, 0));
    showFolder();
    atFile(1, [this] {
        showFolder("home/other");
        list().Makegallery();
        albums::createAlbum();
        EXPECT_EQ(list().window()->findChildren<QShortcut*>().size(), 1);
    });
    albums::createAlbum();
    EXPECT_EQ(m_told, QStringList{"1 3 " + m_tree.path("home/Web/pics/index.htm")});
    EXPECT_FALSE(m_tree.exists("home/Web/other"));
    m_yield.stop();
    albums::createAlbum();
    EXPECT_EQ(m_told.size(), 2);
    EXPECT_TRUE(m_tree.exists("home/Web/other/index.htm"));
}

TEST_F(AlbumRunFailures, HoldsTheHostAgainWhenAnotherFolderWasShownAmongThePages)
{
    addPictures(3);
    addPicture("home/other/x.bmp", qRgb(0, 250, 0));
    bool shown = false;
    bool held = false;
    atEveryYield([&] {
        if (m_yields++ == 4) {
            showFolder("home/other");
            list().Makegallery();
            shown = true;
        } else if (shown) {
            held = m_main.gradient.shown && state().IsLoading &&
                   platform::pointer() == platform::Pointer::HourGlass;
        }
    });
    run();
    EXPECT_TRUE(held);
    expectAlbumOf(3);
    expectAllGivenBack();
}

TEST_F(AlbumRunFailures, IsEmptyAtDesignTime)
{
    addPictures(2);
    ThumbNailList design(nullptr, ThumbNailList::Use::DesignTime);
    design.setPath(m_tree.path("home/pics"));
    MakeHtmlGallery(design, m_tree.path("home"));
    EXPECT_EQ(namesIn("home/Web/pics"), QStringList{"index.htm"});
    EXPECT_EQ(rows(), 0);
}

TEST_F(AlbumRunFailures, GoesOnWhenFilesOfItsFolderGo)
{
    addPictures(3);
    atFile(1, [this] { m_tree.remove("home/pics/p1.bmp"); });
    run();
    expectAlbumOf(3);
    EXPECT_TRUE(page("index.htm").contains("Filename : p1.bmp"));
    EXPECT_EQ(m_tree.content("home/Web/pics/OriginalPics/p1.jpg"),
              m_tree.content("home/Web/pics/OriginalPics/p0.jpg"));
}

TEST_F(AlbumRunFailures, RunsInsideARunOfTheTiles)
{
    addPictures(3);
    showFolder();
    atFile(1, [this] { albums::createAlbum(); });
    list().Makegallery();
    expectAlbumOf(3);
    EXPECT_EQ(list().tiles().size(), 3U);
    expectAllGivenBack();
}

TEST_F(AlbumRunFailures, CompressesNoOtherPictureWhereItsFileCannotBeWritten)
{
    m_config.write("Classic", "1");
    addPicture("home/pics/p0.bmp", qRgb(0, 250, 0), {64, 48});
    std::filesystem::create_directory(m_tree.native("app/Tmp.bmp"));
    run();
    EXPECT_FALSE(m_tree.exists("home/Web/pics/tn_p0.jpg"));
    EXPECT_FALSE(m_tree.exists("home/Web/pics/OriginalPics/p0.jpg"));
    EXPECT_EQ(rows(), 1);
}
