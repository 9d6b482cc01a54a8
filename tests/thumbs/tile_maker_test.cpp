#include "core/state.h"
#include "formats/hooks.h"
#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"
#include "thumbs/gallery_fixture.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <array>
#include <map>
#include <memory>
#include <new>

namespace {

// A picture of its own colour for every file, so that a tile tells which file it was made of.
class ChangingGalleryTest : public GalleryTest {
protected:
    ChangingGalleryTest() { m_list.setAutoUpdateOnPathchange(true); }

    // The names are the same in every folder.
    void addPictures(const std::string& folder, unsigned count, base::Colour kind)
    {
        m_tree.add({folder + "/"});
        for (unsigned k = 0; k < count; ++k) {
            const std::string name = folder + "/p" + std::to_string(100 + k) + ".bmp";
            const base::Colour colour = kind + base::rgb(0, k, 0);
            addPicture(name, colour);
            m_colours[m_tree.path(name)] = colour;
        }
    }

    void chooseFolder(const std::string& folder) { m_list.setPath(m_tree.path(folder)); }

    void expectTilesOf(const std::string& folder, int count)
    {
        EXPECT_EQ(m_list.path(), m_tree.path(folder));
        EXPECT_EQ(filledRows(), count);
        for (int k = 0; k < count; ++k) {
            ASSERT_NE(row(k), nullptr) << k;
            EXPECT_EQ(row(k)->path, m_tree.path(folder + "/p" + std::to_string(100 + k) + ".bmp"));
            const QPoint middle = row(k)->box.rect().center();
            EXPECT_EQ(at(middle.x(), middle.y(), row(k)->page), m_colours[row(k)->path]) << k;
        }
    }

    std::map<QString, base::Colour> m_colours;
};

// A Photoshop file of 4 x 4 whose planes are missing: its reader tells so in a box and goes on with
// a black picture.
std::string psdWithoutPlanes()
{
    std::string file("8BPS\0\1\0\0\0\0\0\0\0\3\0\0\0\4\0\0\0\4\0\10\0\3", 26);
    return file + std::string(14, '\0');
}

// 4 x 4 pixels, all blue.
std::string blueTga()
{
    std::string file(18, '\0');
    file[2] = 2;
    file[12] = 4;
    file[14] = 4;
    file[16] = 24;
    for (int pixel = 0; pixel < 16; ++pixel) {
        file += std::string("\xFF\0\0", 3);
    }
    return file;
}

class ScopedReport {
public:
    explicit ScopedReport(std::function<void()> report)
    {
        formats::Hooks hooks;
        hooks.report = [report = std::move(report)](const char* /*text*/) { report(); };
        formats::setHooks(std::move(hooks));
    }
    ~ScopedReport() { formats::setHooks({}); }
    ScopedReport(const ScopedReport&) = delete;
    ScopedReport& operator=(const ScopedReport&) = delete;
};

} // namespace

TEST_F(GalleryTest, PaintsRingFillPictureAndBadge)
{
    addPicture("pics/a.bmp", kRed);
    addPicture("app/Images/bmp.ico", kGreen, {10, 10});
    m_list.setThumbNailBorderColor(kBlue);
    runFolder();

    EXPECT_EQ(at(17, 0), kBlue);
    EXPECT_EQ(at(89, 71), kBlue);
    EXPECT_EQ(at(90, 40), 0U); // the page
    EXPECT_EQ(at(88, 70), 0x808080U);
    EXPECT_EQ(at(50, 4), 0x808080U);
    EXPECT_EQ(at(50, 5), kRed);
    EXPECT_EQ(at(82, 64), kRed);
    EXPECT_EQ(at(83, 65), 0x808080U);
    EXPECT_EQ(at(18, 0), kGreen);
    EXPECT_EQ(at(27, 9), kGreen);
    EXPECT_EQ(at(28, 10), kRed);
}

TEST_F(GalleryTest, FillsTheTableRowOfEachTile)
{
    addPicture("pics/a.bmp", kRed);
    addPicture("pics/b.bmp", kGreen);
    runFolder();
    ASSERT_NE(row(1), nullptr);
    EXPECT_EQ(row(1)->box, (thumbs::TileBox{93, 0, 163, 70}));
    EXPECT_EQ(row(1)->path, m_tree.path("pics/b.bmp"));
    EXPECT_EQ(row(1)->page, 0);
    EXPECT_EQ(m_list.surface().state.ThumbTable.rows(), 3);
}

TEST_F(GalleryTest, LeavesSmallPicturesAtTheirSize)
{
    addPicture("pics/a.bmp", kRed, {30, 30});
    runFolder();
    EXPECT_EQ(at(18 + 19, 20), 0x808080U);
    EXPECT_EQ(at(18 + 20, 20), kRed);
    EXPECT_EQ(at(18 + 49, 49), kRed);
    EXPECT_EQ(at(18 + 50, 50), 0x808080U);
}

TEST_F(GalleryTest, CentresWidePictures)
{
    addPicture("pics/a.jpg", kRed, {300, 60}, "JPG");
    runFolder();
    EXPECT_EQ(at(18 + 35, 28), 0x808080U);
    EXPECT_NEAR(base::redOf(at(18 + 35, 35)), 255, 3);
    EXPECT_EQ(at(18 + 35, 41), 0x808080U);
}

TEST_F(GalleryTest, GivesNoTileToAPictureOfWhichNothingIsLeft)
{
    addPicture("pics/a.bmp", kRed, {10000, 10});
    addPicture("pics/b.bmp", kRed);
    runFolder();
    EXPECT_EQ(row(0), nullptr);
    ASSERT_NE(row(1), nullptr);
    EXPECT_EQ(row(1)->box.left, 93); // the place of the first one stays free
}

TEST_F(GalleryTest, ShowsThePictureBeforeForADamagedFile)
{
    addPicture("pics/a.jpg", kBlue, {100, 100}, "JPG");
    m_tree.add({"pics/b.jpg", "no picture"});
    runFolder();
    EXPECT_NEAR(base::blueOf(at(93 + 35, 35)), 255, 3);
    ASSERT_NE(row(1), nullptr);
    EXPECT_EQ(row(1)->path, m_tree.path("pics/b.jpg"));
}

TEST_F(GalleryTest, KeepsLittleOfALargePicture)
{
    addPicture("pics/a.bmp", kGreen, {3000, 1500});
    m_tree.add({"pics/b.bmp", "no picture"});
    runFolder();
    EXPECT_EQ(m_list.surface().P_load.naturalSize, QSize(3000, 1500));
    EXPECT_EQ(m_list.surface().P_load.picture.image().size(), QSize(1024, 512));
    EXPECT_EQ(at(93 + 35, 35), kGreen);
    EXPECT_EQ(at(93 + 35, 19), 0x808080U); // in the large one's own proportions
    EXPECT_EQ(at(93 + 35, 20), kGreen);
}

TEST_F(GalleryTest, ShowsAnEmptyTileForADamagedFirstFile)
{
    m_tree.add({"pics/a.jpg", "no picture"});
    runFolder();
    EXPECT_EQ(at(18 + 35, 35), 0x808080U);
    EXPECT_NE(row(0), nullptr);
}

TEST_F(GalleryTest, KeepsTheBadgeBeforeWhereOneIsMissing)
{
    addPicture("app/Images/bmp.ico", kGreen, {8, 8});
    addPicture("pics/a.bmp", kRed);
    addPicture("pics/b.gif", kRed, {100, 100}, "BMP");
    runFolder();
    EXPECT_EQ(at(93, 0), kGreen);
}

TEST_F(GalleryTest, ShowsDeliveredPicturesForWhatIsNoPicture)
{
    addPicture("app/Images/playbg.ico", kBlue, {40, 40});
    addPicture("app/Images/nofbg.ico", kGreen, {40, 40});
    m_tree.add({"pics/a.avi", "film"});
    addPicture("pics/b.jpeg", kRed, {100, 100}, "JPG");
    m_tree.add({"pics/c.MP3", "song"});
    runFolder();
    EXPECT_EQ(at(18 + 35, 35), kBlue);
    EXPECT_EQ(at(93 + 35, 35), kGreen);
    EXPECT_EQ(at(168 + 35, 35), kGreen); // its own picture is missing: the one before
}

TEST_F(GalleryTest, GivesANeutralBadgeInTheFrameComposer)
{
    addPicture("app/Images/jpg.ico", kGreen, {8, 8});
    addPicture("app/Images/noName.ico", kBlue, {8, 8});
    addPicture("pics/a.jpg", kRed, {100, 100}, "JPG");
    core::state().FrameWindowOpen = true;
    runFolder();
    core::state().FrameWindowOpen = false;
    EXPECT_EQ(at(18, 0), kBlue);
}

TEST_F(GalleryTest, DecodesForeignFormatsByWayOfTheWorkingFile)
{
    m_tree.add({"pics/a.tga", blueTga()});
    runFolder();
    EXPECT_EQ(at(18 + 35, 35), kBlue);
    EXPECT_EQ(m_list.surface().P_load.naturalSize, QSize(4, 4));
    EXPECT_TRUE(m_tree.exists("app/temp.bmp"));
}

TEST_F(GalleryTest, ShowsThePictureBeforeForARefusedForeignFile)
{
    m_tree.add({"pics/a.tga", blueTga()});
    addPicture("pics/b.bmp", kGreen);
    m_tree.add({"pics/c.psd", "no picture"});
    m_tree.add({"pics/d.pcx", std::string("\n\5\1\10", 4)}); // begins well and is cut short
    runFolder();
    EXPECT_EQ(at(18 + 35, 35), kBlue);
    EXPECT_EQ(at(93 + 35, 35), kGreen);
    EXPECT_EQ(at(168 + 35, 35), kGreen);
    EXPECT_EQ(at(18 + 35, 75 + 35), kGreen);
    ASSERT_NE(row(2), nullptr);
    EXPECT_EQ(row(2)->path, m_tree.path("pics/c.psd"));
}

TEST_F(GalleryTest, StartsTheNextPageAtTheFirstTileTooMany)
{
    addFiles("pics", 25);
    runFolder();
    EXPECT_EQ(m_list.surface().pages.pages(), 2);
    ASSERT_NE(row(24), nullptr);
    EXPECT_EQ(row(24)->page, 1);
    EXPECT_EQ(row(24)->box, (thumbs::TileBox{18, 0, 88, 70}));
    EXPECT_EQ(row(23)->box.left, 168);
    EXPECT_EQ(row(23)->box.top, 525);
}

TEST_F(GalleryTest, ReportsThePageBeforeOnTheFirstTileOfANewOne)
{
    addFiles("pics", 26);
    QStringList texts;
    atEveryYield([this, &texts] { texts.append(m_list.surface().infoText()); });
    runFolder();
    EXPECT_TRUE(texts.contains(" Pagina 1 Afbeelding: 25 van: 26  ThumbSize:60 x 60"));
    EXPECT_FALSE(texts.contains(" Pagina 2 Afbeelding: 25 van: 26  ThumbSize:60 x 60"));
    EXPECT_EQ(m_list.surface().infoText(),
              " Pagina: 1 Afbeelding: 27 van: 26  Tijd:  ThumbSize:60 x 60");
}

TEST_F(GalleryTest, WritesItsBarInEnglish)
{
    addFiles("pics", 1);
    m_list.setLanguage(0);
    runFolder();
    EXPECT_EQ(m_list.surface().infoText(), " Page: 0 Picture: 2 from: 1  Tijd:  ThumbSize:60 x 60");
}

TEST_F(GalleryTest, LeavesTheBarAloneInOtherLanguages)
{
    addFiles("pics", 1);
    m_list.setLanguage(5);
    m_list.surface().setInfoText("before");
    runFolder();
    EXPECT_EQ(m_list.surface().infoText(), "before");
}

TEST_F(GalleryTest, LetsEventsRunOncePerFile)
{
    addFiles("pics", 6);
    std::vector<int> done;
    atEveryYield([this, &done] { done.push_back(filledRows()); });
    runFolder();
    ASSERT_GE(done.size(), 6U);
    for (int k = 0; k < 6; ++k) {
        EXPECT_EQ(std::count(done.begin(), done.end(), k), 1) << k;
    }
}

TEST_F(GalleryTest, StopsBeforeTheNextFileWhenCancelled)
{
    addFiles("pics", 10);
    atEveryYield([this] { m_list.surface().state.CancelLoading = filledRows() == 5; });
    runFolder();
    EXPECT_EQ(filledRows(), 5);
    EXPECT_EQ(m_list.surface().infoText(),
              " Pagina: 0 Afbeelding: 6 van: 10  Tijd:  ThumbSize:60 x 60");
    EXPECT_FALSE(m_list.surface().state.IsLoading);
    EXPECT_FALSE(m_list.surface().state.CancelLoading);
}

TEST_F(GalleryTest, TellsAnEmptyFolderAsOneOfNone)
{
    runFolder();
    EXPECT_EQ(m_list.surface().infoText(),
              " Pagina: 0 Afbeelding: 1 van: 0  Tijd:  ThumbSize:60 x 60");
    EXPECT_EQ(m_list.surface().state.ThumbTable.rows(), 1);
    EXPECT_EQ(m_list.surface().pages.bitmap(0), nullptr);
}

TEST_F(GalleryTest, CanSelectATileThatIsDoneAlready)
{
    addFiles("pics", 4);
    m_list.show();
    QSignalSpy clicks(&m_list, &ThumbNailList::ThumbClick);
    bool clicked = false;
    atEveryYield([this, &clicked] {
        if (!clicked && filledRows() == 2) {
            clicked = true;
            QTest::mouseClick(&m_list.surface().viewport, Qt::LeftButton, {},
                              {5 + 93 + 10, 10 + 10});
        }
    });
    runFolder();
    ASSERT_EQ(clicks.count(), 1);
    EXPECT_EQ(clicks[0][0].toInt(), 1);
    EXPECT_EQ(filledRows(), 4);
}

TEST_F(GalleryTest, GoesOnAgainstTheNewPagesAfterANestedRun)
{
    addFiles("pics", 10);
    m_tree.add({"other/"});
    for (int k = 0; k < 12; ++k) {
        addPicture("other/p" + std::to_string(100 + k) + ".bmp", kGreen);
    }
    bool nested = false;
    atEveryYield([this, &nested] {
        if (!nested && filledRows() == 3) {
            nested = true;
            runFolder("other");
            EXPECT_EQ(filledRows(), 12);
            EXPECT_FALSE(m_list.surface().state.IsLoading);
        }
    });
    runFolder();
    // The outer run went on at its fourth file, with the other's folder and names.
    for (int k = 0; k < 12; ++k) {
        ASSERT_NE(row(k), nullptr) << k;
        EXPECT_EQ(row(k)->path, m_tree.path("other/p" + std::to_string(100 + k) + ".bmp"));
        EXPECT_EQ(at(row(k)->box.left + 35, row(k)->box.top + 35), kGreen) << k;
    }
    EXPECT_EQ(m_list.surface().infoText(),
              " Pagina: 0 Afbeelding: 11 van: 10  Tijd:  ThumbSize:60 x 60");
}

TEST_F(GalleryTest, EndsAtOnceAfterANestedRunOverFewerFiles)
{
    addFiles("pics", 60);
    addFiles("other", 2);
    bool nested = false;
    atEveryYield([this, &nested] {
        if (!nested && filledRows() == 30) {
            nested = true;
            runFolder("other");
        }
    });
    runFolder();
    EXPECT_TRUE(nested);
    EXPECT_EQ(filledRows(), 2);
    EXPECT_EQ(m_list.surface().pages.pages(), 1);
    EXPECT_EQ(m_list.surface().infoText(),
              " Pagina: 1 Afbeelding: 31 van: 60  Tijd:  ThumbSize:60 x 60");
}

TEST_F(ChangingGalleryTest, ShowsTheLastFolderAfterQuickChanges)
{
    const std::vector<std::string> folders{"one", "two", "three", "four", "five", "six"};
    for (unsigned k = 0; k < folders.size(); ++k) {
        addPictures(folders[k], 60, base::rgb(40 * k, 0, 200));
    }
    std::size_t next = 1;
    int yields = 0;
    atEveryYield([&] {
        if (++yields % 7 == 0 && next < folders.size()) {
            chooseFolder(folders[next++]);
        }
    });
    chooseFolder(folders[0]);
    EXPECT_EQ(next, folders.size());
    expectTilesOf("six", 60);
    EXPECT_EQ(m_list.surface().pages.pages(), 3);
}

// The first run stands on its second page when the others have come and gone.
TEST_F(ChangingGalleryTest, MakesNoPageTwice)
{
    addPictures("one", 60, base::rgb(10, 0, 0));
    addPictures("two", 60, base::rgb(200, 0, 0));
    bool chosen = false;
    atEveryYield([&] {
        if (!chosen && filledRows() == 40) {
            chosen = true;
            chooseFolder("two");
        }
    });
    chooseFolder("one");
    EXPECT_TRUE(chosen);
    expectTilesOf("two", 60);
    EXPECT_EQ(m_list.surface().pages.pages(), 3);
    EXPECT_EQ(m_list.surface().V_Scroll.maximum(), 1840 - 620 - 5);
}

TEST_F(ChangingGalleryTest, GoesOnInTheTilesOfAnotherSize)
{
    addPictures("one", 60, base::rgb(10, 0, 0));
    bool changed = false;
    atEveryYield([&] {
        if (!changed && filledRows() == 40) {
            changed = true;
            m_list.setThumbNailSize(100);
            m_list.Makegallery();
        }
    });
    chooseFolder("one");
    EXPECT_TRUE(changed);
    expectTilesOf("one", 60);
}

// A list that changes without a run of its own.
TEST_F(ChangingGalleryTest, TakesEveryFileFromTheListAsItStands)
{
    addPictures("one", 10, base::rgb(10, 0, 0));
    addPictures("two", 10, base::rgb(200, 0, 0));
    atEveryYield([&] {
        if (filledRows() == 4) {
            m_list.setAutoUpdateOnPathchange(false);
            chooseFolder("two");
        }
    });
    chooseFolder("one");
    for (int k = 0; k < 10; ++k) {
        ASSERT_NE(row(k), nullptr) << k;
        const std::string folder = k < 4 ? "one/p" : "two/p";
        EXPECT_EQ(row(k)->path, m_tree.path(folder + std::to_string(100 + k) + ".bmp"));
        const QPoint middle = row(k)->box.rect().center();
        EXPECT_EQ(at(middle.x(), middle.y()), m_colours[row(k)->path]) << k;
    }
}

TEST_F(ChangingGalleryTest, KeepsTheHighlightWhenAnEarlierRunGoesOn)
{
    addPictures("one", 20, base::rgb(10, 0, 0));
    addPictures("two", 20, base::rgb(200, 0, 0));
    bool chosen = false;
    atEveryYield([&] {
        if (!chosen && filledRows() == 4) {
            chosen = true;
            chooseFolder("two");
            m_list.pressTile(10);
        }
    });
    chooseFolder("one");
    EXPECT_EQ(m_list.selectedTile(), 10);
    const thumbs::TileBox ring = row(10)->box.grown(1);
    EXPECT_EQ(at(ring.left, ring.top), kGreen);
}

TEST_F(ChangingGalleryTest, ShowsThatItRunsUntilTheLastRunHasEnded)
{
    addPictures("one", 10, base::rgb(10, 0, 0));
    addPictures("two", 10, base::rgb(200, 0, 0));
    bool chosen = false;
    bool nestedEnded = false;
    int yieldsAfter = 0;
    atEveryYield([&] {
        if (nestedEnded) {
            ++yieldsAfter;
            // The first yield after it is the one that it ended in.
            EXPECT_EQ(platform::pointer(), platform::Pointer::ArrowHourGlass);
            EXPECT_TRUE(m_list.surface().state.IsLoading);
            EXPECT_TRUE(m_main.gradient.shown);
        }
        if (!chosen && filledRows() == 3) {
            chosen = true;
            chooseFolder("two");
            nestedEnded = true;
        }
    });
    chooseFolder("one");
    EXPECT_GT(yieldsAfter, 0);
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
    EXPECT_FALSE(m_list.surface().state.IsLoading);
    EXPECT_FALSE(m_main.gradient.shown);
}

TEST_F(ChangingGalleryTest, EndsWhenAnotherFolderWasRefusedMeanwhile)
{
    addPictures("one", 30, base::rgb(10, 0, 0));
    addFiles("many", 72);
    m_list.setMaxThumbnailpages(2);
    bool chosen = false;
    atEveryYield([&] {
        if (!chosen && filledRows() == 3) {
            chosen = true;
            chooseFolder("many");
        }
    });
    chooseFolder("one");
    EXPECT_EQ(m_dialogs.boxes.size(), 1U);
    EXPECT_EQ(filledRows(), 0);
    EXPECT_EQ(m_list.surface().pages.bitmap(0), nullptr);
}

TEST_F(ChangingGalleryTest, KeepsTheFolderThatWasChosenUnderTheReport)
{
    addPictures("one", 10, base::rgb(10, 0, 0));
    addFiles("many", 72);
    m_list.setMaxThumbnailpages(2);
    m_dialogs.whileOpen = [this] { chooseFolder("one"); };
    chooseFolder("many");
    expectTilesOf("one", 10);
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(ChangingGalleryTest, KeepsTheFolderThatWasChosenUnderABoxOfAReader)
{
    m_tree.add({"pics/p100.psd", psdWithoutPlanes()});
    addPictures("one", 10, base::rgb(10, 0, 0));
    bool chosen = false;
    const ScopedReport report([&] {
        if (!chosen) {
            chosen = true;
            chooseFolder("one");
        }
    });
    chooseFolder("pics");
    EXPECT_TRUE(chosen);
    expectTilesOf("one", 10);
}

// What is left of the list is marked, so that whoever writes to it afterwards is seen.
TEST_F(GalleryTest, SurvivesTheEndOfItsListUnderABoxOfAReader)
{
    constexpr std::byte kMark{0x5A};
    m_tree.add({"pics/p100.psd", psdWithoutPlanes()});
    addPicture("pics/p101.bmp", kRed);
    alignas(ThumbNailList) std::array<std::byte, sizeof(ThumbNailList)> room{};
    auto* const list = new (room.data()) ThumbNailList;
    list->resize(300, 650);
    list->setPath(m_tree.path("pics"));
    bool ended = false;
    const ScopedReport report([&] {
        ended = true;
        list->~ThumbNailList();
        room.fill(kMark);
    });
    list->Makegallery();
    ASSERT_TRUE(ended);
    EXPECT_EQ(std::count(room.begin(), room.end(), kMark), static_cast<long>(room.size()));
    platform::setPointer(platform::Pointer::Default);
}

TEST_F(GalleryTest, ShowsProgressInTheMainWindow)
{
    addFiles("pics", 5);
    bool shown = false;
    atEveryYield([this, &shown] { shown = shown || m_main.gradient.shown; });
    runFolder();
    EXPECT_TRUE(shown);
    EXPECT_FALSE(m_main.gradient.shown);
    EXPECT_EQ(m_main.gradient.fractions, (std::vector<double>{0.0, 0.25, 0.5, 0.75, 1.0}));
    EXPECT_EQ(m_main.gradient.background, 0xE0E0E0U);
    EXPECT_EQ(m_main.gradient.fillColour, base::systemColour(8));
}

TEST_F(GalleryTest, FillsNoProgressForOneFile)
{
    addFiles("pics", 1);
    runFolder();
    EXPECT_TRUE(m_main.gradient.fractions.empty());
    EXPECT_NE(row(0), nullptr);
}

TEST_F(GalleryTest, ShowsTheArrowWithTheHourGlassWhileItRuns)
{
    addFiles("pics", 2);
    platform::Pointer during = platform::Pointer::Default;
    atEveryYield([&during] { during = platform::pointer(); });
    runFolder();
    EXPECT_EQ(during, platform::Pointer::ArrowHourGlass);
    EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
}

TEST_F(GalleryTest, RefusesAFolderOfTooManyPages)
{
    addFiles("pics", 72);
    m_list.setMaxThumbnailpages(2);
    QSignalSpy status(&m_list, &ThumbNailList::ThumbPageStatus);
    runFolder();
    ASSERT_EQ(m_dialogs.boxes.size(), 1U);
    EXPECT_EQ(m_dialogs.boxes[0].title, "Te veel Thumbnailpagina's");
    EXPECT_EQ(m_dialogs.boxes[0].icon, platform::BoxIcon::Exclamation);
    EXPECT_TRUE(m_dialogs.boxes[0].text.contains("Berekend aantal pagina's = 3\r\n"));
    EXPECT_TRUE(m_dialogs.boxes[0].text.contains("en tot 48\r\n"));
    EXPECT_TRUE(m_dialogs.boxes[0].text.contains("meer dan 260x600\r\n"));
    EXPECT_TRUE(m_list.surface().state.IsLoading);
    EXPECT_EQ(m_list.surface().pages.pages(), 1);
    EXPECT_EQ(filledRows(), 0);
    EXPECT_EQ(status.count(), 0);
    EXPECT_FALSE(m_main.gradient.shown);
    EXPECT_EQ(platform::pointer(), platform::Pointer::ArrowHourGlass);
    platform::setPointer(platform::Pointer::Default);
}

TEST_F(GalleryTest, RefusesInSilenceWithoutALanguage)
{
    addFiles("pics", 72);
    m_list.setMaxThumbnailpages(2);
    m_list.setLanguage(2);
    runFolder();
    EXPECT_TRUE(m_dialogs.boxes.empty());
    EXPECT_TRUE(m_list.surface().state.IsLoading);
    EXPECT_EQ(platform::pointer(), platform::Pointer::ArrowHourGlass);
    platform::setPointer(platform::Pointer::Default);
}

TEST_F(GalleryTest, LeavesNoTileOfTheFolderBeforeARefusedOne)
{
    addFiles("pics", 72);
    addFiles("few", 3);
    m_list.setMaxThumbnailpages(2);
    runFolder("few");
    const QPoint place = m_list.surface().viewport.tilePlace(0, row(0)->box).center();
    QSignalSpy clicks(&m_list, &ThumbNailList::ThumbClick);
    runFolder("pics");
    QTest::mouseClick(&m_list.surface().viewport, Qt::LeftButton, {}, place);
    QTest::mouseDClick(&m_list.surface().viewport, Qt::LeftButton, {}, place);
    EXPECT_EQ(clicks.count(), 0);
    EXPECT_EQ(m_list.surface().state.ThumbTable.rows(), 1);
    platform::setPointer(platform::Pointer::Default);
}

TEST_F(GalleryTest, TakesAFolderOfJustTheLimit)
{
    addFiles("pics", 71);
    m_list.setMaxThumbnailpages(2);
    QSignalSpy status(&m_list, &ThumbNailList::ThumbPageStatus);
    int tilesThen = -1;
    QObject::connect(&m_list, &ThumbNailList::ThumbPageStatus, &m_list,
                     [&] { tilesThen = filledRows(); });
    runFolder();
    ASSERT_EQ(status.count(), 1);
    EXPECT_EQ(status[0], (QList<QVariant>{60, 24, 2, 71}));
    EXPECT_EQ(tilesThen, 0);
    EXPECT_EQ(filledRows(), 71);
    EXPECT_EQ(m_list.surface().pages.pages(), 3);
}

TEST_F(GalleryTest, RunsAfterARefusalWasPutRight)
{
    addFiles("pics", 72);
    m_list.setMaxThumbnailpages(2);
    runFolder();
    m_list.setMaxThumbnailpages(100);
    m_list.Makegallery();
    EXPECT_EQ(filledRows(), 72);
    EXPECT_FALSE(m_list.surface().state.IsLoading);
}

TEST_F(GalleryTest, BringsThePagesBackToTheirTop)
{
    addFiles("pics", 60);
    m_list.show();
    runFolder();
    EXPECT_EQ(m_list.surface().V_Scroll.maximum(), 1840 - 620 - 5);
    m_list.surface().V_Scroll.setValue(700);
    EXPECT_EQ(m_list.surface().viewport.sheetPosition().y(), -700);
    m_list.Makegallery();
    EXPECT_EQ(m_list.surface().V_Scroll.value(), 0);
    EXPECT_EQ(m_list.surface().viewport.sheetPosition().y(), 0);
    EXPECT_TRUE(m_list.surface().V_Scroll.isVisible());
}

TEST_F(GalleryTest, HoldsNoBitmapsForPagesWithoutASize)
{
    addFiles("pics", 500);
    setViewport(20, 20);
    runFolder();
    EXPECT_EQ(m_list.surface().pages.pages(), 501);
    EXPECT_EQ(m_list.surface().pages.bitmapBytes(), 0);
    EXPECT_EQ(filledRows(), 500);
}

TEST_F(GalleryTest, HoldsBitmapsForPagesInReachOnly)
{
    addFiles("pics", 300);
    setViewport(70, 400); // wide enough for no tile: a page for every file
    runFolder();
    EXPECT_EQ(m_list.surface().pages.pages(), 301);
    EXPECT_NE(m_list.surface().pages.bitmap(80), nullptr);
    EXPECT_EQ(m_list.surface().pages.bitmap(300), nullptr);
    EXPECT_EQ(m_list.surface().V_Scroll.maximum(), 32767);
}

TEST_F(GalleryTest, SurvivesTheEndOfItsListInTheMiddle)
{
    addFiles("pics", 10);
    auto list = std::make_unique<ThumbNailList>();
    list->resize(300, 650);
    list->show();
    list->setPath(m_tree.path("pics"));
    int yields = 0;
    atEveryYield([&] {
        if (++yields == 3) {
            list.reset();
        }
    });
    ThumbNailList* const running = list.get();
    running->Makegallery();
    EXPECT_EQ(list, nullptr);
    platform::setPointer(platform::Pointer::Default);
}

TEST_F(GalleryTest, StopsWhenTheProgramCloses)
{
    addFiles("pics", 10);
    atEveryYield([this] {
        if (filledRows() == 4) {
            platform::beginClosing();
        }
    });
    runFolder();
    platform::resetClosing();
    EXPECT_EQ(filledRows(), 4);
}

TEST_F(GalleryTest, SurvivesTheEndOfItsListUnderTheReport)
{
    addFiles("pics", 72);
    auto list = std::make_unique<ThumbNailList>();
    list->resize(m_list.size());
    list->show();
    list->setMaxThumbnailpages(2);
    list->setPath(m_tree.path("pics"));
    m_dialogs.whileOpen = [&list] { list.reset(); };
    ThumbNailList* const running = list.get();
    running->Makegallery();
    EXPECT_EQ(list, nullptr);
    platform::setPointer(platform::Pointer::Default);
}

TEST_F(GalleryTest, TakesUpFilesAndColoursAnew)
{
    addPicture("pics/a.bmp", kRed);
    runFolder();
    m_list.setThumbNailColor(kGreen);
    EXPECT_EQ(at(88, 70), 0x808080U); // nothing by itself
    m_list.Makegallery();
    EXPECT_EQ(at(88, 70), kGreen);
}

TEST_F(GalleryTest, RunsWithoutAnyWindowAround)
{
    core::services().progress = nullptr;
    addFiles("pics", 3);
    runFolder();
    core::services().progress = &m_main.gradient;
    EXPECT_EQ(filledRows(), 3);
}

TEST_F(GalleryTest, DrawsAPageOfEmptyTilesAtDesignTime)
{
    ThumbNailList designed(nullptr, ThumbNailList::Use::DesignTime);
    designed.resize(m_list.size());
    designed.show();
    EXPECT_EQ(designed.surface().pages.point(0, 88, 70), 0x808080U);
    EXPECT_EQ(designed.surface().pages.point(0, 168 + 70, 525 + 70), 0x808080U);
    designed.setThumbNailColor(kGreen);
    EXPECT_EQ(designed.surface().pages.point(0, 88, 70), kGreen);
    EXPECT_EQ(designed.surface().pages.pages(), 1);
}
