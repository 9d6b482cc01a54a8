#include "publishing/printing/contact_sheets.h"

#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"
#include "platform/os/registry.h"
#include "support/fake_printers.h"
#include "support/memory_config_store.h"
#include "thumbs/gallery_fixture.h"
#include "thumbs/info_bar.h"
#include "widgets/progress_strip.h"

#include <QFile>
#include <QScrollBar>
#include <memory>

namespace {

constexpr base::Colour kWhite = 0xFFFFFF;

// Sheets of 250 x 600: one column of two cells of 239, the first one's picture at 11, 66 to 240,
// 295. On paper they are twice as large.
class ContactSheetsTest : public GalleryTest {
protected:
    ContactSheetsTest()
    {
        m_printers.system = {{"Office", true}};
        m_printers.metrics = paper(500, 1200);
        m_list.setPrintLayout(&printing::makeContactSheets);
        m_list.setPrint_NrThumbCols(1);
        m_list.setLanguage(0);
        addPicture("pics/a.bmp", kRed, {300, 300});
        addPicture("pics/b.bmp", kGreen, {300, 300});
        addPicture("pics/c.bmp", kBlue, {1000, 1000});
        runFolder();
    }

    static platform::PaperMetrics paper(int width, int height)
    {
        platform::PaperMetrics metrics;
        metrics.logPixelsX = metrics.logPixelsY = 200;
        metrics.innerWidth = width;
        metrics.innerHeight = height;
        return metrics;
    }

    // Cancels after so many yields.
    void cancelAtYield(int which)
    {
        atEveryYield([this, which, count = 0]() mutable {
            if (++count == which) {
                m_list.surface().state.CancelLoading = true;
            }
        });
    }

    [[nodiscard]] thumbs::GalleryState& state() { return m_list.surface().state; }
    [[nodiscard]] int sheets() { return m_list.surface().pages.pages(); }
    [[nodiscard]] QRect sheet(int index) { return m_list.surface().pages.stack().pageRect(index); }
    [[nodiscard]] QString bar() { return m_list.surface().infoText(); }
    [[nodiscard]] std::vector<std::size_t> pagesOfDocuments() const
    {
        std::vector<std::size_t> pages;
        for (const support::PrintedDocument& each : m_printers.documents) {
            pages.push_back(each.pages.size());
        }
        return pages;
    }
    [[nodiscard]] const support::PrintedDocument& document()
    {
        return m_printers.documents.front();
    }

    support::MemoryConfigStore m_config;
    support::FakePrinters m_printers;
};

} // namespace

TEST_F(ContactSheetsTest, ShowsWhiteSheetsInTheProportionsOfThePaper)
{
    m_list.PrintPreview();
    EXPECT_EQ(sheets(), 2);
    EXPECT_EQ(sheet(0), QRect(10, 20, 250, 600));
    EXPECT_EQ(sheet(1), QRect(10, 640, 250, 600));
    EXPECT_EQ(at(5, 5), kWhite);
    EXPECT_EQ(at(125, 180), kRed);
    EXPECT_EQ(at(125, 420), kGreen);
    EXPECT_EQ(at(125, 180, 1), kBlue);
    EXPECT_EQ(at(125, 420, 1), kWhite);
    EXPECT_TRUE(m_printers.documents.empty());
}

// No box, no border and no badge around a picture.
TEST_F(ContactSheetsTest, PutsNothingButThePictureIntoACell)
{
    m_list.PrintPreview();
    EXPECT_EQ(at(10, 180), kWhite);
    EXPECT_EQ(at(11, 180), kRed);
    EXPECT_EQ(at(239, 180), kRed);
    EXPECT_EQ(at(240, 180), kWhite);
    EXPECT_EQ(at(125, 65), kWhite);
    EXPECT_EQ(at(125, 66), kRed);
}

TEST_F(ContactSheetsTest, ScrollsOverTheSheetsAndHidesTheBarForOne)
{
    m_list.PrintPreview();
    EXPECT_TRUE(m_list.surface().V_Scroll.isVisible());
    EXPECT_EQ(m_list.surface().V_Scroll.maximum(), 1260 - 620 - 5);
    m_list.surface().V_Scroll.setValue(300);
    m_list.setPrint_NrThumbCols(3);
    m_list.PrintPreview();
    EXPECT_EQ(sheets(), 1);
    EXPECT_FALSE(m_list.surface().V_Scroll.isVisible());
    EXPECT_EQ(m_list.surface().viewport.sheetPosition().y(), 0);
}

TEST_F(ContactSheetsTest, ZoomsTheSheetsFromTheSameBase)
{
    m_list.setPrint_Zoomfactor(50);
    EXPECT_EQ(sheet(0), QRect(72, 20, 125, 300));
    EXPECT_EQ(sheet(1), QRect(72, 340, 125, 300));
    EXPECT_EQ(at(62, 75), kRed);
    m_list.setPrint_Zoomfactor(200);
    EXPECT_EQ(sheet(0), QRect(-115, 20, 500, 1200));
    m_list.setPrint_Zoomfactor(100);
    EXPECT_EQ(sheet(0), QRect(10, 20, 250, 600));
}

TEST_F(ContactSheetsTest, PreviewsAgainAtTheZoomThatItHas)
{
    m_list.setPrint_Zoomfactor(100);
    EXPECT_TRUE(state().IsPrintPreview);
    EXPECT_EQ(sheets(), 2);
}

TEST_F(ContactSheetsTest, LeavesASheetAtAZoomOutOfRange)
{
    m_list.setPrint_Zoomfactor(9);
    m_list.setPrint_Zoomfactor(201);
    EXPECT_FALSE(state().IsPrintPreview);
}

TEST_F(ContactSheetsTest, TakesTheHeightOfTheViewportBeforeTheFirstPages)
{
    ThumbNailList fresh;
    fresh.resize(m_list.size());
    fresh.setPrintLayout(&printing::makeContactSheets);
    fresh.setPath(m_tree.path("pics"));
    fresh.PrintPreview();
    const int height = fresh.surface().viewportSize().height() - 40;
    EXPECT_EQ(fresh.surface().state.PageHeightNow, height);
    EXPECT_EQ(fresh.surface().pages.stack().pageSize(), QSize(height * 500 / 1200, height));
}

TEST_F(ContactSheetsTest, GoesBackToTilesWithTheirOwnPages)
{
    m_list.setPrint_Zoomfactor(50);
    m_list.Makegallery();
    EXPECT_FALSE(state().IsPrintPreview);
    EXPECT_EQ(sheet(0), QRect(0, 10, 260, 600));
    EXPECT_EQ(at(18, 0), m_list.ThumbNailColor());
}

TEST_F(ContactSheetsTest, IgnoresPressesUntilTheNextTiles)
{
    m_list.PrintPreview();
    int clicks = 0;
    QObject::connect(&m_list, &ThumbNailList::ThumbClick, &m_list, [&clicks] { ++clicks; });
    QObject::connect(&m_list, &ThumbNailList::ThumbDblClick, &m_list, [&clicks] { ++clicks; });
    m_list.pressTile(0);
    m_list.doubleClickTile();
    emit m_list.surface().viewport.pagePressed(0, {125, 180});
    EXPECT_EQ(clicks, 0);
    m_list.Makegallery();
    m_list.pressTile(0);
    EXPECT_EQ(clicks, 1);
}

TEST_F(ContactSheetsTest, TellsSheetAndPictureInBothLanguages)
{
    QStringList lines;
    atEveryYield([&] { lines.append(bar()); });
    m_list.PrintPreview();
    EXPECT_EQ(lines.mid(1),
              (QStringList{" Page 1 picture: 1 from: 3", " Page 1 picture: 2 from: 3"}));
    EXPECT_EQ(bar(), " Page: 1 Picture: 4 from: 3  Tijd:");
    lines.clear();
    m_list.setLanguage(1);
    m_list.PrintPreview();
    EXPECT_EQ(lines.last(), " Pagina 1 Afbeelding: 2 van: 3");
    EXPECT_EQ(bar(), " Pagina: 1 Afbeelding: 4 van: 3  Tijd:");
}

// The line is written before the sheet is turned.
TEST_F(ContactSheetsTest, TellsTheOldSheetForTheFirstPictureOfANewOne)
{
    m_tree.add({"pics/d.bmp", "no picture"});
    m_list.surface().File1.refresh();
    QStringList lines;
    atEveryYield([&] { lines.append(bar()); });
    m_list.PrintPreview();
    EXPECT_EQ(lines.last(), " Page 1 picture: 3 from: 4");
    EXPECT_EQ(bar(), " Page: 1 Picture: 5 from: 4  Tijd:");
}

TEST_F(ContactSheetsTest, KeepsTheLineInALanguageWithoutTexts)
{
    m_list.setLanguage(7);
    const QString before = bar();
    m_list.PrintPreview();
    EXPECT_EQ(bar(), before);
}

TEST_F(ContactSheetsTest, LeavesItsStateInTheCaptionOfTheHost)
{
    QWidget host;
    auto* list = new ThumbNailList(&host);
    list->setPrintLayout(&printing::makeContactSheets);
    list->setPath(m_tree.path("pics"));
    list->PrintPreview();
    EXPECT_EQ(host.windowTitle(), "Can_Print = False");
    list->PrintPicture();
    EXPECT_EQ(host.windowTitle(), "Can_Print = True");
}

TEST_F(ContactSheetsTest, ShowsTheStripOfTheListAndHoldsNothing)
{
    std::vector<bool> shown;
    atEveryYield([&] {
        shown.push_back(m_list.surface().Gradient.isVisible());
        EXPECT_FALSE(m_main.gradient.shown);
        EXPECT_EQ(platform::pointer(), platform::Pointer::Default);
        EXPECT_TRUE(state().IsLoading);
    });
    m_list.PrintPreview();
    EXPECT_EQ(shown, (std::vector<bool>{true, true, true}));
    EXPECT_FALSE(m_list.surface().Gradient.isVisible());
    EXPECT_FALSE(state().IsLoading);
    EXPECT_FALSE(state().IsPrinting);
}

TEST_F(ContactSheetsTest, PrintsTheSheetsAsTheyAreShown)
{
    m_list.PrintPicture();
    ASSERT_EQ(m_printers.documents.size(), 1U);
    EXPECT_EQ(document().title, "Contact sheets of pics");
    EXPECT_EQ(document().copies, 1);
    ASSERT_EQ(document().pages.size(), 2U);
    ASSERT_EQ(document().pages[0].size(), 2U);
    ASSERT_EQ(document().pages[1].size(), 1U);
    EXPECT_EQ(document().pages[0][0].place, QRectF(22, 132, 458, 458));
    EXPECT_EQ(document().pages[0][1].place, QRectF(22, 610, 458, 458));
    EXPECT_EQ(document().pages[1][0].place, QRectF(22, 132, 458, 458));
    EXPECT_EQ(sheets(), 2);
    EXPECT_EQ(at(125, 180, 1), kBlue);
    EXPECT_FALSE(state().IsPrinting);
}

TEST_F(ContactSheetsTest, PrintsPicturesAtTheirOwnPixels)
{
    addPicture("pics/d.jpg", kGreen, {640, 480}, "JPG");
    m_list.surface().File1.refresh();
    m_list.PrintPicture();
    EXPECT_EQ(document().pages[0][0].picture.size(), QSize(300, 300));
    EXPECT_EQ(document().pages[1][1].picture.size(), QSize(640, 480));
    EXPECT_EQ(QColor(document().pages[1][0].picture.pixel(0, 0)), QColor(0, 0, 255));
}

// The room of 458 printer's pixels takes 687 at 300 in an inch.
TEST_F(ContactSheetsTest, PrintsNoMorePixelsThanPaperShows)
{
    addPicture("pics/d.jpg", kGreen, {1600, 1200}, "JPG");
    m_list.surface().File1.refresh();
    m_list.PrintPicture();
    EXPECT_EQ(document().pages[1][0].picture.size(), QSize(687, 687));
    EXPECT_EQ(document().pages[1][1].picture.size(), QSize(687, 516));
    EXPECT_EQ(m_list.surface().P_load.naturalSize, QSize(1600, 1200));
}

TEST_F(ContactSheetsTest, PrintsAsFineAsThePrinterIsAskedFor)
{
    m_printers.metrics = paper(2500, 6000);
    m_printers.metrics->logPixelsX = m_printers.metrics->logPixelsY = 600;
    addPicture("pics/d.bmp", kGreen, {3000, 3000});
    m_list.surface().File1.refresh();
    m_list.PrintPicture();
    EXPECT_EQ(document().pages[1][0].picture.size(), QSize(1000, 1000));
    EXPECT_EQ(document().pages[1][1].picture.size(), QSize(2290, 2290));
}

TEST_F(ContactSheetsTest, AsksThePrinterForTheQualityOfItsProperty)
{
    m_list.setPrintResolution(150);
    m_list.PrintPreview();
    EXPECT_TRUE(m_printers.log.contains("quality 150"));
    m_printers.log.clear();
    m_list.setPrintResolution("fine");
    m_list.PrintPreview();
    EXPECT_TRUE(m_printers.log.filter("quality").isEmpty());
}

TEST_F(ContactSheetsTest, NotesThatPrintingHasBegun)
{
    platform::saveSetting("Print", "Resolution", "");
    m_list.PrintPreview();
    EXPECT_EQ(platform::getSetting("Print", "Resolution"), "");
    m_list.PrintPicture();
    EXPECT_EQ(platform::getSetting("Print", "Resolution"), "300");
}

TEST_F(ContactSheetsTest, PrintsThePreviousPictureInPlaceOfARefusedFile)
{
    m_tree.add({"pics/aa.jpg", "no picture"});
    m_tree.add({"pics/d.psd", "no picture"});
    m_list.surface().File1.refresh();
    m_list.PrintPicture();
    ASSERT_EQ(document().pages.size(), 3U);
    EXPECT_EQ(document().pages[0][1].picture, document().pages[0][0].picture);
    EXPECT_EQ(document().pages[2][0].picture, document().pages[1][1].picture);
    EXPECT_EQ(at(125, 420), kRed);
    EXPECT_EQ(at(125, 180, 2), kBlue);
}

TEST_F(ContactSheetsTest, PrintsNoDocumentWithoutFiles)
{
    m_tree.add({"empty/"});
    m_list.setPath(m_tree.path("empty"));
    m_list.PrintPicture();
    EXPECT_TRUE(m_printers.documents.empty());
    EXPECT_TRUE(m_printers.log.filter("start").isEmpty());
    EXPECT_EQ(sheets(), 1);
    EXPECT_EQ(bar(), " Page: 0 Picture: 1 from: 0  Tijd:");
}

TEST_F(ContactSheetsTest, EndsTheDocumentAtACancel)
{
    cancelAtYield(2);
    m_list.PrintPicture();
    ASSERT_EQ(m_printers.documents.size(), 1U);
    ASSERT_EQ(document().pages.size(), 1U);
    EXPECT_EQ(document().pages[0].size(), 1U);
    EXPECT_EQ(bar(), " Page: 0 Picture: 2 from: 3  Tijd:");
    EXPECT_FALSE(state().IsPrinting);
}

TEST_F(ContactSheetsTest, KeepsTheWidthOfThePagesWithoutAPrinter)
{
    m_config.values["Classic"] = "1";
    m_printers.system.clear();
    m_list.PrintPicture();
    EXPECT_EQ(sheet(0).size(), QSize(260, 600));
    EXPECT_EQ(at(125, 180), kRed);
    EXPECT_TRUE(m_printers.documents.empty());
}

TEST_F(ContactSheetsTest, ShowsTheSheetsOfAPrinterThatTellsNoPaper)
{
    m_printers.metrics = platform::PaperMetrics();
    m_list.PrintPicture();
    EXPECT_EQ(sheet(0).size(), QSize(260, 600));
    EXPECT_TRUE(m_printers.documents.empty());
    EXPECT_FALSE(state().IsPrinting);
}

TEST_F(ContactSheetsTest, EndsWhereNoDocumentIsWanted)
{
    m_printers.starts = false;
    m_list.PrintPicture();
    EXPECT_TRUE(m_printers.documents.empty());
    EXPECT_EQ(m_printers.log.filter("start").size(), 1);
    EXPECT_EQ(m_printers.log.filter("draw").size(), 0);
    EXPECT_EQ(at(125, 420), kWhite);
    EXPECT_FALSE(state().IsLoading);
}

TEST_F(ContactSheetsTest, GoesOnWithAPrinterThatFails)
{
    m_printers.fate = platform::PrintFailure::Gone;
    m_list.PrintPicture();
    EXPECT_EQ(sheets(), 2);
    EXPECT_FALSE(state().IsPrinting);
}

TEST_F(ContactSheetsTest, PrintsNoMoreOnAPrinterThatWasChangedForAnother)
{
    m_printers.system.push_back({"Attic", false});
    atEveryYield([this, count = 0]() mutable {
        if (++count == 2) {
            m_printers.select(m_printers.open("Attic", {}));
        }
    });
    m_list.PrintPicture();
    EXPECT_TRUE(m_printers.documents.empty());
    EXPECT_EQ(m_printers.log.filter("draw").size(), 1);
    EXPECT_EQ(sheets(), 2);
}

TEST_F(ContactSheetsTest, TakesASheetForEachPictureWhereACellIsHigherThanThePaper)
{
    m_printers.metrics = paper(1200, 600);
    m_list.PrintPicture();
    EXPECT_EQ(sheets(), 4);
    ASSERT_EQ(document().pages.size(), 4U);
    EXPECT_TRUE(document().pages[0].empty());
    EXPECT_EQ(document().pages[3].size(), 1U);
}

TEST_F(ContactSheetsTest, DrawsNothingIntoCellsWithoutRoom)
{
    for (const std::int16_t columns : {0, -3, 30, 32767}) {
        m_printers.documents.clear();
        m_list.setPrint_NrThumbCols(columns);
        m_list.PrintPicture();
        EXPECT_EQ(m_printers.log.filter("draw").size(), 0) << columns;
        EXPECT_EQ(at(125, 180), kWhite) << columns;
        // Without cells each file turns the page; less than none put all of them on the first.
        const std::vector<std::size_t> pages =
            columns == 0 ? std::vector<std::size_t>{4} : std::vector<std::size_t>{};
        EXPECT_EQ(pagesOfDocuments(), pages) << columns;
    }
}

TEST_F(ContactSheetsTest, StopsAtANewNumberOfColumns)
{
    atEveryYield([this, count = 0]() mutable {
        if (++count == 2) {
            m_list.setPrint_NrThumbCols(2);
        }
    });
    m_list.PrintPreview();
    EXPECT_EQ(at(125, 180), kRed);
    EXPECT_EQ(at(125, 420), kWhite);
}

TEST_F(ContactSheetsTest, LeavesTheSheetsToAZoomInTheMiddle)
{
    atEveryYield([this, count = 0]() mutable {
        if (++count == 2) {
            m_list.setPrint_Zoomfactor(50);
        }
    });
    m_list.PrintPreview();
    EXPECT_EQ(sheets(), 2);
    EXPECT_EQ(sheet(1), QRect(72, 340, 125, 300));
    EXPECT_EQ(at(62, 215), kGreen);
    EXPECT_EQ(at(62, 75, 1), kBlue);
    EXPECT_EQ(bar(), " Page: 1 Picture: 4 from: 3  Tijd:");
    EXPECT_FALSE(state().IsLoading);
}

// The sheets so far come out, and then all of them at the new zoom.
TEST_F(ContactSheetsTest, EndsItsDocumentAtAZoomInTheMiddle)
{
    atEveryYield([this, count = 0]() mutable {
        if (++count == 2) {
            m_list.setPrint_Zoomfactor(50);
        }
    });
    m_list.PrintPicture();
    ASSERT_EQ(pagesOfDocuments(), (std::vector<std::size_t>{1, 2}));
    EXPECT_EQ(m_printers.documents[0].pages[0].size(), 1U);
    EXPECT_EQ(m_printers.documents[1].pages[0].size(), 2U);
    EXPECT_EQ(m_printers.documents[1].pages[1].size(), 1U);
    EXPECT_FALSE(state().IsPrinting);
}

TEST_F(ContactSheetsTest, LeavesThePagesToTilesInTheMiddleAndEndsItsDocument)
{
    m_tree.add({"other/"});
    addPicture("other/x.bmp", kGreen);
    atEveryYield([this, count = 0]() mutable {
        if (++count == 2) {
            runFolder("other");
        }
    });
    m_list.PrintPicture();
    EXPECT_EQ(document().pages.size(), 1U);
    EXPECT_EQ(document().pages[0].size(), 1U);
    EXPECT_EQ(sheet(0), QRect(0, 10, 260, 600));
    EXPECT_EQ(filledRows(), 1);
    EXPECT_TRUE(bar().endsWith("ThumbSize:60 x 60"));
    EXPECT_FALSE(state().IsPrintPreview);
    EXPECT_FALSE(state().IsLoading);
}

TEST_F(ContactSheetsTest, EndsWhereTheFolderIsChangedForAnother)
{
    m_tree.add({"other/"});
    addPicture("other/x.bmp", kGreen);
    addPicture("other/y.bmp", kGreen);
    atEveryYield([this, count = 0]() mutable {
        if (++count == 2) {
            m_list.setPath(m_tree.path("other"));
        }
    });
    m_list.PrintPicture();
    ASSERT_EQ(document().pages.size(), 1U);
    EXPECT_EQ(document().pages[0].size(), 1U);
}

TEST_F(ContactSheetsTest, EndsWhereTheFolderIsChangedForOneInIt)
{
    m_tree.add({"pics/more/"});
    addPicture("pics/more/x.bmp", kGreen);
    addPicture("pics/more/y.bmp", kGreen);
    atEveryYield([this, count = 0]() mutable {
        if (++count == 2) {
            m_list.setPath(m_tree.path("pics/more"));
        }
    });
    m_list.PrintPicture();
    ASSERT_EQ(document().pages.size(), 1U);
    EXPECT_EQ(document().pages[0].size(), 1U);
}

TEST_F(ContactSheetsTest, StandsFilesThatVanishInTheMiddle)
{
    atEveryYield([this, count = 0]() mutable {
        if (++count == 2) {
            QFile::remove(m_tree.path("pics/b.bmp"));
            m_list.surface().File1.refresh();
        }
    });
    m_list.PrintPicture();
    EXPECT_EQ(document().pages.size(), 1U);
    EXPECT_EQ(document().pages[0].size(), 2U);
}

TEST_F(ContactSheetsTest, EndsTheDocumentWhereTheProgramClosesInTheMiddle)
{
    atEveryYield([count = 0]() mutable {
        if (++count == 2) {
            platform::beginClosing();
        }
    });
    m_list.PrintPicture();
    platform::resetClosing();
    ASSERT_EQ(m_printers.documents.size(), 1U);
    EXPECT_EQ(document().pages[0].size(), 1U);
}

TEST_F(ContactSheetsTest, SurvivesTheEndOfItsListInTheMiddle)
{
    auto list = std::make_unique<ThumbNailList>();
    list->setPrintLayout(&printing::makeContactSheets);
    list->setPath(m_tree.path("pics"));
    atEveryYield([&list, count = 0]() mutable {
        if (++count == 2) {
            list.reset();
        }
    });
    list->PrintPicture();
    ASSERT_EQ(m_printers.documents.size(), 1U);
    EXPECT_EQ(document().pages[0].size(), 1U);
}

TEST_F(ContactSheetsTest, SurvivesTheEndOfItsListWhereTheDocumentBegins)
{
    auto list = std::make_unique<ThumbNailList>();
    list->setPrintLayout(&printing::makeContactSheets);
    list->setPath(m_tree.path("pics"));
    m_printers.whileStarting = [&list] { list.reset(); };
    list->PrintPicture();
    EXPECT_EQ(list, nullptr);
}

TEST_F(ContactSheetsTest, LeavesThePagesToTilesThatComeWhereTheDocumentBegins)
{
    m_printers.whileStarting = [this] { m_list.Makegallery(); };
    m_list.PrintPicture();
    EXPECT_EQ(sheet(0), QRect(0, 10, 260, 600));
    EXPECT_EQ(at(18, 0), m_list.ThumbNailColor());
    EXPECT_FALSE(state().IsPrintPreview);
}

TEST_F(ContactSheetsTest, KeepsNoMoreThanOnePictureAtATime)
{
    m_list.PrintPicture();
    EXPECT_LE(m_list.surface().P_load.picture.width(), 1024);
    addPicture("pics/d.jpg", kGreen, {3200, 2400}, "JPG");
    m_list.surface().File1.refresh();
    m_list.PrintPreview();
    EXPECT_LT(m_list.surface().P_load.picture.width(), 1000);
    EXPECT_EQ(m_list.surface().P_load.naturalSize, QSize(3200, 2400));
}
