#include "thumbs/gallery_fixture.h"
#include "thumbs/info_bar.h"
#include "widgets/progress_strip.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

class ThumbnailListTest : public GalleryTest {
protected:
    [[nodiscard]] QWidget* part(const char* name) { return m_list.findChild<QWidget*>(name); }

    [[nodiscard]] QColor shownAt(int x, int y)
    {
        return m_list.surface().viewport.grab().toImage().pixelColor(x, y);
    }
};

TEST_F(ThumbnailListTest, LaysOutItsParts)
{
    const int bar = part("LbInfo")->height();
    const int scroll = part("V_Scroll")->width();
    EXPECT_EQ(part("LbInfo")->pos(), QPoint(0, 0));
    EXPECT_EQ(part("LbInfo")->width(), 270 + scroll);
    EXPECT_EQ(part("ThumbOuterFrame")->geometry(), QRect(0, bar, 270, 620));
    EXPECT_EQ(part("V_Scroll")->pos(), QPoint(270, bar));
    EXPECT_EQ(part("Gradient")->geometry().bottom(), bar - 1);
    EXPECT_FALSE(m_list.surface().V_Scroll.isVisibleTo(&m_list));
    EXPECT_EQ(m_list.surface().viewport.sheetPosition(), QPoint(5, 5));
}

TEST_F(ThumbnailListTest, GivesTheBarsRoomToTheViewport)
{
    const int whole = m_list.height();
    m_list.setInfobarVisible(false);
    EXPECT_FALSE(part("LbInfo")->isVisibleTo(&m_list));
    EXPECT_EQ(part("ThumbOuterFrame")->geometry(), QRect(0, 0, 270, whole));
    m_list.setInfobarVisible(true);
    EXPECT_EQ(m_list.surface().viewportSize(), QSize(270, 620));
}

TEST_F(ThumbnailListTest, MeasuresTheViewport)
{
    addFiles("pics", 100);
    m_list.setPath(m_tree.path("pics"));
    EXPECT_EQ(m_list.ThumbnailsPerPage(), 24);
    EXPECT_EQ(m_list.surface().state.ThumbCellSize, 70);
    EXPECT_EQ(m_list.surface().state.PageColumns, 3);
    EXPECT_EQ(m_list.ThumbnailPagesNeeded(), 4);
    EXPECT_EQ(m_list.surface().state.ThumbsPerPage, 24);
}

TEST_F(ThumbnailListTest, MeasuresWithoutTheExtraSizes)
{
    addFiles("pics", 3);
    m_list.setThumbnailExtraWidth(20);
    EXPECT_EQ(m_list.ThumbnailsPerPage(), 24);
    runFolder();
    EXPECT_EQ(m_list.surface().state.PageColumns, 2);
    EXPECT_EQ(m_list.surface().state.grid.cellWidth, 90);
}

TEST_F(ThumbnailListTest, NeedsNoPageForTenFiles)
{
    addFiles("pics", 10);
    m_list.setPath(m_tree.path("pics"));
    EXPECT_EQ(m_list.ThumbnailPagesNeeded(), 0);
    setViewport(20, 20);
    EXPECT_EQ(m_list.ThumbnailPagesNeeded(), 0);
}

TEST_F(ThumbnailListTest, RunsOnAPathOnlyWhenToldTo)
{
    addFiles("pics", 2);
    addFiles("other", 3);
    m_list.setPath(m_tree.path("pics"));
    EXPECT_EQ(filledRows(), 0);
    EXPECT_EQ(m_list.path(), m_tree.path("pics"));
    EXPECT_EQ(m_list.properties().Path, m_tree.path("pics"));
    m_list.setAutoUpdateOnPathchange(true);
    EXPECT_EQ(filledRows(), 0);
    m_list.setPath(m_tree.path("other"));
    EXPECT_EQ(filledRows(), 3);
    m_list.setPath(m_tree.path("pics"));
    EXPECT_EQ(filledRows(), 2);
}

TEST_F(ThumbnailListTest, TellsWhenThePathChanges)
{
    QSignalSpy changes(&m_list, &ThumbNailList::ThumbPathChange);
    m_list.setPath(m_tree.path("pics"));
    m_list.setPath(m_tree.path("pics"));
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0][0].toString(), m_tree.path("pics"));
}

TEST_F(ThumbnailListTest, TakesOverAListThatWasRead)
{
    addFiles("pics", 4);
    platform::FileList list;
    list.setPattern(core::kPicturePattern);
    list.setPath(m_tree.path("pics"));
    m_list.setAutoUpdateOnPathchange(true);
    m_list.setPathFrom(list);
    EXPECT_EQ(m_list.path(), m_tree.path("pics"));
    EXPECT_EQ(filledRows(), 4);
}

TEST_F(ThumbnailListTest, StartsNoRunByASetter)
{
    addFiles("pics", 2);
    m_list.setPath(m_tree.path("pics"));
    m_list.setThumbNailSize(100);
    m_list.setThumbNailColor(kRed);
    m_list.setThumbPageColor(kRed);
    m_list.setThumbNailSelectColor(kRed);
    m_list.setThumbNailBorderColor(kRed);
    m_list.setThumbPage_FrameColor(kRed);
    m_list.setFloodFillColor(kRed);
    m_list.setThumbnailExtraWidth(4);
    m_list.setThumbPageColorPresets(3);
    m_list.setHtml_PageBackcolor(kRed);
    EXPECT_EQ(filledRows(), 0);
    EXPECT_FALSE(m_list.surface().state.IsHtmlRun);
    EXPECT_TRUE(m_list.propertiesChanged());
}

TEST_F(ThumbnailListTest, TakesBackgroundsAtOnce)
{
    addPicture("pics/a.bmp", kRed);
    m_list.show();
    runFolder();
    m_list.setThumbPage_FrameColor(kBlue);
    m_list.setThumbPageColor(kGreen);
    EXPECT_EQ(shownAt(1, 300), QColor(0, 0, 255));
    EXPECT_EQ(shownAt(5 + 200, 10 + 300), QColor(0, 255, 0));
    EXPECT_EQ(shownAt(5 + 18 + 35, 10 + 35), QColor(255, 0, 0)); // what is painted stays
    EXPECT_EQ(shownAt(5 + 88, 10 + 70), QColor(0x80, 0x80, 0x80));
}

TEST_F(ThumbnailListTest, RepaintsNothingForAPresetBeforeTheNextRun)
{
    addPicture("pics/a.bmp", kRed);
    m_list.show();
    runFolder();
    m_list.setThumbPageColorPresets(4);
    EXPECT_EQ(m_list.ThumbPageColor(), 0xFFFFFFU);
    EXPECT_EQ(m_list.ThumbNailColor(), 0xE0E0E0U);
    EXPECT_EQ(shownAt(1, 300), QColor(0x40, 0x40, 0x40));
    EXPECT_EQ(shownAt(200, 300), QColor(0, 0, 0));
    m_list.Makegallery();
    EXPECT_EQ(shownAt(1, 300), QColor(255, 255, 255));
    EXPECT_EQ(shownAt(200, 300), QColor(255, 255, 255));
    EXPECT_EQ(shownAt(5 + 88, 10 + 70), QColor(0xE0, 0xE0, 0xE0));
}

TEST_F(ThumbnailListTest, WritesNoColourForAnUnknownPreset)
{
    m_list.setThumbPageColorPresets(7);
    EXPECT_EQ(m_list.ThumbPageColorPresets(), 7);
    EXPECT_EQ(m_list.ThumbNailColor(), 0x808080U);
}

TEST_F(ThumbnailListTest, TakesColoursOfTheBarAtOnce)
{
    m_list.show();
    m_list.surface().setInfoText("text");
    m_list.setInfoBackColor(kBlue);
    const QImage bar = part("LbInfo")->grab().toImage();
    EXPECT_EQ(bar.pixelColor(bar.width() - 1, bar.height() - 1), QColor(0, 0, 255));
    m_list.setInfoForeColor(kGreen);
    const QImage again = part("LbInfo")->grab().toImage();
    EXPECT_NE(again, bar);
}

TEST_F(ThumbnailListTest, ShowsPagesWhereTheBarLeadsTo)
{
    addPicture("app/Images/swf.ico", kGreen, {8, 8});
    addFiles("pics", 30);
    m_list.show();
    runFolder();
    EXPECT_EQ(shownAt(5 + 18, 10), QColor(0, 255, 0));
    m_list.surface().V_Scroll.setValue(600);
    EXPECT_EQ(shownAt(5 + 18, 20), QColor(0, 255, 0)); // the second page begins at 620
    EXPECT_EQ(shownAt(5 + 18, 19), QColor(0x40, 0x40, 0x40));
}

TEST_F(ThumbnailListTest, ResetsWhatARunLeft)
{
    addFiles("pics", 30);
    m_list.show();
    runFolder();
    QTest::mouseClick(&m_list.surface().viewport, Qt::LeftButton, {}, {5 + 93 + 10, 20});
    EXPECT_EQ(m_list.selection().index, 1);
    m_list.ResetLoading();
    EXPECT_EQ(m_list.selection().path, "");
    EXPECT_EQ(m_list.selection().index, 0);
    EXPECT_EQ(m_list.selection().tile, 0);
    EXPECT_EQ(m_list.selection().page, 0);
    EXPECT_EQ(m_list.surface().pages.pages(), 1);
    EXPECT_TRUE(m_list.surface().state.IsLoading);
    EXPECT_FALSE(m_list.surface().state.CancelLoading);
    EXPECT_EQ(m_list.surface().state.PagesLoaded, 1);
    EXPECT_EQ(filledRows(), 0);
}

TEST_F(ThumbnailListTest, ShowsTheBarWhereASmallerWindowHidesTiles)
{
    addFiles("pics", 20);
    runFolder();
    EXPECT_FALSE(m_list.surface().V_Scroll.isVisible());
    m_list.resize(m_list.width(), m_list.height() - 320);
    ASSERT_TRUE(m_list.surface().V_Scroll.isVisible());
    m_list.surface().V_Scroll.setValue(m_list.surface().V_Scroll.maximum());
    const QRect last = m_list.surface().viewport.tilePlace(row(19)->page, row(19)->box);
    EXPECT_TRUE(m_list.surface().viewport.rect().contains(last));
    QSignalSpy clicks(&m_list, &ThumbNailList::ThumbClick);
    QTest::mouseClick(&m_list.surface().viewport, Qt::LeftButton, {}, last.center());
    ASSERT_EQ(clicks.count(), 1);
    EXPECT_EQ(clicks[0][0].toInt(), 19);

    m_list.resize(m_list.width(), m_list.height() + 320);
    EXPECT_FALSE(m_list.surface().V_Scroll.isVisible());
    EXPECT_EQ(m_list.surface().viewport.sheetPosition(), QPoint(5, 5));
}

TEST_F(ThumbnailListTest, StaysAtItsPlaceWhenItIsResized)
{
    addFiles("pics", 60);
    runFolder();
    m_list.surface().V_Scroll.setValue(700);
    for (const int change : {-100, 40, 60}) {
        m_list.resize(m_list.width(), m_list.height() + change);
        EXPECT_EQ(m_list.surface().V_Scroll.value(), 700);
        EXPECT_EQ(m_list.surface().viewport.sheetPosition().y(), -700);
        EXPECT_EQ(m_list.surface().V_Scroll.maximum(),
                  1840 - m_list.surface().viewportSize().height() - 5);
    }
    m_list.resize(m_list.width(), m_list.height() + 1000); // more than is left below
    EXPECT_EQ(m_list.surface().V_Scroll.value(), m_list.surface().V_Scroll.maximum());
    EXPECT_EQ(m_list.surface().viewport.sheetPosition().y(), -m_list.surface().V_Scroll.maximum());
}

TEST_F(ThumbnailListTest, FillsAStripToItsShare)
{
    widgets::ProgressStrip strip;
    strip.resize(100, 4);
    ThumbNailList::Make_Gradient(strip, 3, 6, kBlue, kGreen);
    const QImage half = strip.grab().toImage();
    EXPECT_EQ(half.pixelColor(49, 1), QColor(0, 0, 255));
    EXPECT_EQ(half.pixelColor(50, 1), QColor(0, 255, 0));
    ThumbNailList::Make_Gradient(strip, 0, 0, kRed);
    EXPECT_EQ(strip.grab().toImage(), half);
}

TEST_F(ThumbnailListTest, TakesPrintZoomsFromTenToTwoHundred)
{
    int layouts = 0;
    m_list.setPrintLayout([&layouts](ThumbNailList&) { ++layouts; });
    m_list.setPrint_Zoomfactor(9);
    m_list.setPrint_Zoomfactor(201);
    EXPECT_EQ(m_list.Print_Zoomfactor(), 100);
    EXPECT_EQ(layouts, 0);
    m_list.setPrint_Zoomfactor(10);
    EXPECT_EQ(m_list.Print_Zoomfactor(), 10);
    m_list.setPrint_Zoomfactor(200);
    EXPECT_EQ(m_list.Print_Zoomfactor(), 200);
    EXPECT_EQ(layouts, 2);
}

TEST_F(ThumbnailListTest, StopsARunByThePrintProperties)
{
    m_list.setPrint_NrThumbCols(7);
    EXPECT_EQ(m_list.Print_NrThumbCols(), 7);
    EXPECT_FALSE(m_list.surface().state.CancelLoading);
    m_list.surface().state.IsLoading = true;
    m_list.setPrint_NrThumbCols(8);
    EXPECT_TRUE(m_list.surface().state.CancelLoading);
    m_list.surface().state.CancelLoading = false;
    m_list.setPrint_Zoomfactor(50);
    EXPECT_TRUE(m_list.surface().state.CancelLoading);
}

TEST_F(ThumbnailListTest, StopsARunThatIsUnderWayAlone)
{
    m_list.stopRunningLoop();
    EXPECT_FALSE(m_list.surface().state.CancelLoading);
    m_list.surface().state.IsLoading = true;
    m_list.stopRunningLoop();
    EXPECT_TRUE(m_list.surface().state.CancelLoading);
}

TEST_F(ThumbnailListTest, MarksARunThatPrints)
{
    bool printing = false;
    m_list.setPrintLayout(
        [&printing](ThumbNailList& list) { printing = list.surface().state.IsPrinting; });
    m_list.PrintPicture();
    EXPECT_TRUE(printing);
}

TEST_F(ThumbnailListTest, KnowsHowMuchMemoryIsFree)
{
    EXPECT_GE(ThumbNailList::SystemResources(), 1);
    EXPECT_LE(ThumbNailList::SystemResources(), 100);
}

TEST_F(ThumbnailListTest, ComesBackFromItsProperties)
{
    m_list.setPath(m_tree.path("pics"));
    m_list.setThumbPage_FrameColor(kBlue);
    m_list.setInfobarVisible(false);
    core::PropertyBag bag;
    m_list.writeProperties(bag);
    EXPECT_FALSE(m_list.propertiesChanged());

    ThumbNailList other;
    EXPECT_EQ(other.Language(), 1);
    other.resize(m_list.size());
    other.readProperties(bag);
    EXPECT_EQ(other.path(), m_tree.path("pics"));
    EXPECT_EQ(other.surface().pages.frameColour(), kBlue);
    EXPECT_FALSE(other.findChild<QWidget*>("LbInfo")->isVisibleTo(&other));
    EXPECT_EQ(other.surface().viewportSize(), m_list.surface().viewportSize());
}

TEST_F(ThumbnailListTest, KeepsTheWheelToItself)
{
    addFiles("pics", 60);
    m_list.show();
    runFolder();
    QWheelEvent turn({50, 50}, m_list.mapToGlobal(QPointF(50, 50)), {}, {0, -120}, {}, {},
                     Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&m_list, &turn);
    EXPECT_GT(m_list.surface().V_Scroll.value(), 0);
    EXPECT_TRUE(turn.isAccepted());
}
