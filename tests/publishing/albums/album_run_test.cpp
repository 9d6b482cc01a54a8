#include "publishing/albums/album_run_fixture.h"

#include "platform/pictures/jpeg_converter.h"
#include "thumbs/page_viewport.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

namespace {

constexpr int kNear = 6; // that JPEG may change a channel by

bool isNear(QRgb left, QRgb right)
{
    return std::abs(qRed(left) - qRed(right)) <= kNear &&
           std::abs(qGreen(left) - qGreen(right)) <= kNear &&
           std::abs(qBlue(left) - qBlue(right)) <= kNear;
}

// Every text that the bar is painted with, once in a row.
class PaintedTexts : public QObject {
public:
    explicit PaintedTexts(ThumbNailList& list)
        : m_bar(*list.findChild<QLabel*>("LbInfo"))
    {
        m_bar.installEventFilter(this);
    }
    QStringList texts;

private:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && (texts.isEmpty() || texts.last() != m_bar.text())) {
            texts.append(m_bar.text());
        }
        return false;
    }
    QLabel& m_bar;
};

} // namespace

TEST_F(AlbumRunTest, MakesAnAlbumOfAFolder)
{
    addPicture("home/pics/Berg.jpg");
    addGif("home/pics/dot.GIF");
    addPicture("home/pics/My Photo+1.JPG");
    run();
    EXPECT_EQ(namesIn("home/Web/pics"),
              (QStringList{"OriginalPics/berg.htm", "OriginalPics/berg.jpg", "OriginalPics/dot.gif",
                           "OriginalPics/dot.htm", "OriginalPics/my_photo_1.htm",
                           "OriginalPics/my_photo_1.jpg", "index.htm", "tn_berg.jpg", "tn_dot.jpg",
                           "tn_my_photo_1.jpg"}));
    EXPECT_EQ(rows(), 3);
    EXPECT_TRUE(isClosed());
    EXPECT_TRUE(m_dialogs.boxes.empty());
    expectAllGivenBack();
}

TEST_F(AlbumRunTest, TellsTheSizesOfTheFilesOnItsPages)
{
    addPicture("home/pics/a.jpg", qRgb(0, 0, 200), {640, 480});
    run();
    EXPECT_EQ(picture("tn_a.jpg").size(), QSize(160, 120));
    EXPECT_EQ(picture("OriginalPics/a.jpg").size(), QSize(640, 480));
    EXPECT_TRUE(page("index.htm").contains(R"(src="tn_a.jpg" width="160" height="120")"));
    EXPECT_TRUE(page("OriginalPics/a.htm").contains(R"(src="a.jpg" width="640" height="480")"));
    EXPECT_TRUE(isNear(picture("tn_a.jpg").pixel(80, 60), qRgb(0, 0, 200)));
    EXPECT_TRUE(isNear(picture("OriginalPics/a.jpg").pixel(320, 240), qRgb(0, 0, 200)));
}

TEST_F(AlbumRunTest, LinksEveryPageToItsNeighbours)
{
    addPicture("home/pics/a.bmp");
    addPicture("home/pics/b.bmp");
    addPicture("home/pics/c.bmp");
    run();
    EXPECT_TRUE(
        page("OriginalPics/a.htm")
            .contains("Previous | <a href=../index.htm>Index</a> | <a href=b.htm>Next</a>"));
    EXPECT_TRUE(page("OriginalPics/b.htm").contains("<a href=a.htm>Previous</a>"));
    EXPECT_TRUE(page("OriginalPics/c.htm").contains("<a href=b.htm>Previous</a>"));
    EXPECT_TRUE(page("OriginalPics/c.htm").contains("| Next</font>"));
}

TEST_F(AlbumRunTest, GoesToTheProgramsFolderWithoutARoot)
{
    addPicture("home/pics/a.bmp");
    showFolder();
    MakeHtmlGallery(list());
    EXPECT_TRUE(m_tree.exists("app/Web/pics/index.htm"));
    EXPECT_TRUE(m_tree.exists("app/Web/pics/OriginalPics/a.jpg"));
}

TEST_F(AlbumRunTest, KeepsAGifUnlessTheListWantsItCompressed)
{
    addGif("home/pics/dot.gif");
    run();
    EXPECT_EQ(m_tree.content("home/Web/pics/OriginalPics/dot.gif"),
              m_tree.content("home/pics/dot.gif"));
    list().setCompress_NO_GIF(false);
    run();
    EXPECT_EQ(picture("OriginalPics/dot.jpg").size(), QSize(1, 1));
    EXPECT_TRUE(page("OriginalPics/dot.htm").contains(R"(src="dot.jpg")"));
}

TEST_F(AlbumRunTest, CopiesTheFilesWhereNothingIsToBeCompressed)
{
    addPicture("home/pics/a.bmp", qRgb(1, 2, 3), {32, 16});
    list().setCompressToJPG(false);
    run();
    EXPECT_EQ(namesIn("home/Web/pics"),
              (QStringList{"OriginalPics/a.htm", "OriginalPics/a.jpg", "index.htm", "tn_a.bmp"}));
    EXPECT_EQ(m_tree.content("home/Web/pics/OriginalPics/a.jpg"),
              m_tree.content("home/pics/a.bmp"));
    EXPECT_EQ(picture("tn_a.bmp").pixel(5, 5), qRgb(1, 2, 3));
}

TEST_F(AlbumRunTest, PutsABorderAroundEveryThumbnail)
{
    addPicture("home/pics/a.bmp", qRgb(0, 200, 0), {320, 160});
    list().setHtml_ThumbnailBorderThicknes(12);
    list().setHtml_ThumbnailBorderColor(0x0000FF); // red
    run();
    const QImage thumbnail = picture("tn_a.jpg");
    EXPECT_EQ(thumbnail.size(), QSize(160 + 24, 80 + 24));
    EXPECT_TRUE(isNear(thumbnail.pixel(2, 2), qRgb(255, 0, 0)));
    EXPECT_TRUE(isNear(thumbnail.pixel(92, 52), qRgb(0, 200, 0)));
    EXPECT_TRUE(page("index.htm").contains(R"(width="184" height="104")"));
    EXPECT_EQ(picture("OriginalPics/a.jpg").size(), QSize(320, 160));
}

TEST_F(AlbumRunTest, LetsTheColourOfTheBorderShineThroughATransparentPicture)
{
    QImage clear(40, 40, QImage::Format_ARGB32);
    clear.fill(Qt::transparent);
    m_tree.add({"home/pics/a.ico"});
    ASSERT_TRUE(clear.save(m_tree.path("home/pics/a.ico"), "ICO"));
    list().setHtml_ThumbnailBorderColor(0xFF0000); // blue
    run();
    EXPECT_TRUE(isNear(picture("tn_a.jpg").pixel(20, 20), qRgb(0, 0, 255)));
    EXPECT_TRUE(isNear(picture("OriginalPics/a.jpg").pixel(20, 20), qRgb(0, 0, 255)));
}

TEST_F(AlbumRunTest, TakesSizeTitleAndQualityFromTheSetupWindow)
{
    addPicture("home/pics/a.bmp", qRgb(90, 20, 160), {640, 480});
    auto* const setup = core::windows().show(core::Window::frmWebRelease);
    setup->findChild<QLineEdit*>("WebTitle")->setText("  Alps ");
    setup->findChild<QLineEdit*>("WebQuality")->setText("7");
    setup->findChild<QPushButton*>("Ok")->click();
    list().setHtml_ThumbnailSize(64);
    run();
    EXPECT_TRUE(page("index.htm").contains("<title>Alps</title>"));
    EXPECT_EQ(picture("tn_a.jpg").size(), QSize(64, 48));
    EXPECT_EQ(BMPToJPG(m_tree.path("home/pics/a.bmp"), m_tree.path("seven.jpg"), 7), 0);
    EXPECT_EQ(m_tree.content("home/Web/pics/OriginalPics/a.jpg"), m_tree.content("seven.jpg"));
}

TEST_F(AlbumRunTest, MakesNoThumbnailsOfSizeZero)
{
    addPicture("home/pics/a.bmp");
    core::windows().load(core::Window::frmWebRelease);
    list().setHtml_ThumbnailSize(0);
    run();
    EXPECT_FALSE(m_tree.exists("home/Web/pics/tn_a.jpg"));
    EXPECT_TRUE(page("index.htm").contains(R"(src="tn_a.jpg" width="0" height="0")"));
    EXPECT_TRUE(m_tree.exists("home/Web/pics/OriginalPics/a.jpg"));
}

TEST_F(AlbumRunTest, KeepsTheTextsOfTheAlbumBefore)
{
    addPicture("home/pics/a.bmp");
    showFolder();
    const QString root = m_tree.path("home");
    MakeHtmlGallery(list(), root, "Beside", "<b>Below</b>");
    EXPECT_TRUE(page("index.htm").contains(R"(<font size="1">Beside</font>)"));
    EXPECT_TRUE(page("index.htm").contains("<font size=1><b>Below</b></font>"));
    MakeHtmlGallery(list(), root, {}, "Other");
    EXPECT_TRUE(page("index.htm").contains(R"(<font size="1">Beside</font>)"));
    EXPECT_TRUE(page("index.htm").contains("<font size=1>Other</font>"));
}

TEST_F(AlbumRunTest, TellsInEnglishWhatItDoes)
{
    addPicture("home/pics/a.bmp");
    addGif("home/pics/b.gif");
    PaintedTexts painted(list());
    run();
    QCoreApplication::processEvents();
    EXPECT_EQ(painted.texts.mid(painted.texts.indexOf("") + 1),
              (QStringList{" Creating html Master page, processing Picture: 1 from: 2",
                           " Compressing picture to jpg format, Picture: 1 from: 2",
                           " Creating html Master page, processing Picture: 2 from: 2",
                           " Creating html Detail pages, processing Picture: 1 from: 2",
                           " Creating html Detail pages, processing Picture: 2 from: 2",
                           " All done !!"}));
}

TEST_F(AlbumRunTest, TellsInDutchWhatItDoes)
{
    addPicture("home/pics/a.bmp");
    list().setLanguage(1);
    PaintedTexts painted(list());
    run();
    QCoreApplication::processEvents();
    EXPECT_EQ(
        painted.texts.mid(painted.texts.indexOf("") + 1),
        (QStringList{" Bezig met maken html Master pagina, afbeelding: 1 van: 1",
                     " Bezig met comprimeren naar jpg formaat, afbeelding: 1 van: 1",
                     " Bezig met maken html Detail pagina`s, afbeelding: 1 van: 1", " Klaar !!"}));
    EXPECT_TRUE(page("index.htm").contains("<dt>Bestand  : a.bmp</dt>"));
}

TEST_F(AlbumRunTest, SaysNothingInALanguageWithoutWords)
{
    addPicture("home/pics/a.bmp");
    list().setLanguage(2);
    list().surface().setInfoText("before");
    run();
    EXPECT_EQ(list().surface().infoText(), "before");
    EXPECT_TRUE(page("OriginalPics/a.htm").contains("<font size=1 ></font>"));
}

TEST_F(AlbumRunTest, TellsOfTheAlbumOnceAndOpensIt)
{
    addPicture("home/pics/a.bmp");
    addPicture("home/pics/b.bmp");
    run();
    const QString index = m_tree.path("home/Web/pics/index.htm");
    EXPECT_EQ(m_told, QStringList{"1 2 " + index});
    EXPECT_EQ(m_desktop.opened, QStringList{index});
}

TEST_F(AlbumRunTest, SaysInDutchThatNoBrowserCame)
{
    addPicture("home/pics/a.bmp");
    m_desktop.succeeds = false;
    bool stillRuns = false;
    m_dialogs.whileOpen = [&] { stillRuns = state().IsHtmlRun && m_main.gradient.shown; };
    run();
    EXPECT_EQ(m_dialogs.boxTexts(), QStringList{"Fout met openen van de browser !!"});
    EXPECT_TRUE(stillRuns);
    expectAllGivenBack();
}

TEST_F(AlbumRunTest, ShowsEveryThumbnailInTheMiddleOfThePages)
{
    addPicture("home/pics/a.bmp", qRgb(0, 0, 255), {320, 320});
    addPicture("home/pics/b.bmp", qRgb(0, 255, 0), {320, 160});
    const QWidget* const viewport = list().findChild<QWidget*>("ThumbOuterFrame");
    QList<QRect> places;
    QList<QRgb> colours;
    atEveryYield([&] {
        const auto* const page = viewport->findChild<QWidget*>("ThumbPage_album");
        if (page != nullptr && page->isVisible()) {
            places.append(page->geometry());
            const QImage shown = list().grab().toImage();
            const QPoint middle = viewport->mapTo(&list(), viewport->rect().center());
            colours.append(shown.pixel(middle));
        }
    });
    run();
    m_yield.stop();
    const QPoint corner = viewport->rect().center() - QPoint(80, 80);
    ASSERT_GE(places.size(), 3);
    EXPECT_EQ(places[0], QRect(-200, -100, 1, 1));
    EXPECT_LE((places[1].topLeft() - corner).manhattanLength(), 2);
    EXPECT_EQ(places[1].size(), QSize(160, 160));
    EXPECT_EQ(places[2].size(), QSize(160, 80));
    EXPECT_EQ(colours[1], qRgb(0, 0, 255));
    EXPECT_EQ(colours[2], qRgb(0, 255, 0));
    expectAllGivenBack();
}

TEST_F(AlbumRunTest, FillsBothStripsUnderTheHourGlass)
{
    addPicture("home/pics/a.bmp");
    addPicture("home/pics/b.bmp");
    addPicture("home/pics/c.bmp");
    bool shown = true;
    std::vector<bool> partly; // whether the list's own strip is
    atEveryYield([&] {
        const QImage strip = list().findChild<QWidget*>("Gradient")->grab().toImage();
        const int middle = strip.height() / 2;
        partly.push_back(strip.pixel(2, middle) != strip.pixel(strip.width() - 3, middle));
        shown = shown && m_main.gradient.shown && state().IsHtmlRun && state().IsLoading &&
                list().findChild<QWidget*>("Gradient")->isVisible() &&
                platform::pointer() == platform::Pointer::HourGlass;
    });
    run();
    EXPECT_TRUE(shown);
    EXPECT_EQ(m_main.gradient.fractions, (std::vector<double>{0.0, 0.5, 1.0}));
    ASSERT_GE(partly.size(), 3U);
    EXPECT_FALSE(partly[1]);
    EXPECT_TRUE(partly[2]); // behind the second of three files
    expectAllGivenBack();
}

TEST_F(AlbumRunTest, TakesNoPressesOnItsPages)
{
    addPicture("home/pics/a.bmp");
    addPicture("home/pics/b.bmp");
    showFolder();
    list().Makegallery();
    const thumbs::TileTable tiles = state().ThumbTable;
    const auto press = [&] {
        state().ThumbTable = tiles; // as if the tiles were still known
        thumbs::PageViewport& viewport = list().surface().viewport;
        const QRect place = viewport.tilePlace(0, tiles.filledRow(0)->box);
        QTest::mousePress(&viewport, Qt::LeftButton, {}, place.center());
    };
    const QSignalSpy clicks(&list(), &ThumbNailList::ThumbClick);
    const QImage before = *list().surface().pages.bitmap(0);
    atEveryYield(press);
    run();
    m_yield.stop();
    EXPECT_EQ(clicks.count(), 0);
    EXPECT_EQ(list().selectedTile(), thumbs::kNoTile);
    EXPECT_EQ(*list().surface().pages.bitmap(0), before);
    press(); // of a tile, once the album is done
    EXPECT_EQ(clicks.count(), 1);
    EXPECT_EQ(list().selectedTile(), 0);
}

TEST_F(AlbumRunTest, WritesOverTheAlbumBefore)
{
    addPicture("home/pics/a.bmp");
    run();
    m_tree.remove("home/pics/a.bmp");
    addPicture("home/pics/b.bmp");
    list().surface().File1.refresh();
    run();
    EXPECT_FALSE(page("index.htm").contains("tn_a.jpg"));
    EXPECT_TRUE(page("index.htm").contains("tn_b.jpg"));
    EXPECT_TRUE(m_tree.exists("home/Web/pics/tn_a.jpg"));
}

TEST_F(AlbumRunTest, WorksFromMemory)
{
    addGif("home/pics/a.gif");
    addPicture("home/pics/b.bmp");
    bool seen = false;
    atEveryYield([&] { seen = seen || m_tree.exists("app/Tmp.bmp"); });
    run();
    EXPECT_FALSE(seen);
}

TEST_F(AlbumRunTest, WorksThroughItsFileInClassicMode)
{
    m_config.write("Classic", "1");
    addGif("home/pics/a.gif");
    addPicture("home/pics/b.bmp");
    QImage seen;
    atEveryYield([&] {
        if (m_tree.exists("app/Tmp.bmp")) {
            seen.load(m_tree.path("app/Tmp.bmp"));
        }
    });
    run();
    EXPECT_EQ(seen.size(), QSize(1, 1)); // the thumbnail of the GIF
    EXPECT_EQ(picture("OriginalPics/b.jpg").size(), QSize(300, 200));
    expectAllGivenBack();
}

TEST_F(AlbumRunTest, EncodesItsLinksExceptInClassicMode)
{
    addPicture("home/pics/a#&1.bmp");
    run();
    EXPECT_TRUE(page("index.htm").contains(R"(href="OriginalPics/a%23%261.htm")"));
    m_config.write("Classic", "1");
    run();
    EXPECT_TRUE(page("index.htm").contains(R"(href="OriginalPics/a#&1.htm")"));
    EXPECT_TRUE(m_tree.exists("home/Web/pics/OriginalPics/a#&1.htm"));
}

TEST_F(AlbumRunTest, IsMadeOfThePanesFolderByTheCommand)
{
    addPicture("home/pics/a.bmp");
    showFolder();
    albums::createAlbum();
    EXPECT_TRUE(page("index.htm").contains("\">Email</a></font>"));
    EXPECT_TRUE(page("index.htm").contains("<font size=1><a href=\"mailto:"));
    EXPECT_FALSE(page("index.htm").contains("rowspan"));
    EXPECT_EQ(list().tiles().size(), 1U);
    EXPECT_EQ(m_desktop.opened.size(), 1);
    expectAllGivenBack();
}

TEST_F(AlbumRunTest, StartsAtTheSizeOfTheSetupWindow)
{
    addPicture("home/pics/a.bmp");
    EXPECT_EQ(list().Html_ThumbnailSize(), 200);
    run();
    EXPECT_EQ(list().Html_ThumbnailSize(), 160);
    EXPECT_EQ(picture("tn_a.jpg").width(), 160);
}

TEST_F(AlbumRunTest, CommandDoesNothingWithoutAFolderOrWhileAnAlbumIsMade)
{
    albums::createAlbum();
    EXPECT_EQ(namesIn("app/Web"), QStringList());
    addPicture("home/pics/a.bmp");
    showFolder();
    int calls = 0;
    atEveryYield([&] {
        if (calls++ < 2) { // for the file and for its page
            albums::createAlbum();
        }
    });
    albums::createAlbum();
    m_yield.stop();
    EXPECT_GE(calls, 2);
    EXPECT_EQ(m_told.size(), 1);
}
