#include "thumbs/gallery_fixture.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

// Two pages of tiles; the ring of a tile is in the border colour blue, a selected one in green.
class SelectionTest : public GalleryTest {
protected:
    SelectionTest()
    {
        addFiles("pics", 26);
        m_list.setThumbNailBorderColor(kBlue);
        m_list.show();
        runFolder();
    }

    // A place on a page, in pixels of the viewport while the sheet is at its top.
    static QPoint onFirstPage(int x, int y) { return {5 + x, 10 + y}; }

    void press(QPoint place, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(&m_list.surface().viewport, button, {}, place);
    }

    // As a desktop sends it: press and release, then the double click and its release.
    void clickTwice(QPoint place)
    {
        QTest::mouseClick(&m_list.surface().viewport, Qt::LeftButton, {}, place);
        QTest::mouseDClick(&m_list.surface().viewport, Qt::LeftButton, {}, place);
    }

    QSignalSpy m_clicks{&m_list, &ThumbNailList::ThumbClick};
    QSignalSpy m_doubleClicks{&m_list, &ThumbNailList::ThumbDblClick};
};

TEST_F(SelectionTest, SelectsTheTileUnderThePointer)
{
    press(onFirstPage(100, 80));
    ASSERT_EQ(m_clicks.count(), 1);
    EXPECT_EQ(m_clicks[0][0].toInt(), 4);
    EXPECT_EQ(m_clicks[0][1].toString(), m_tree.path("pics/f1004.swf"));
    EXPECT_EQ(m_list.selection().path, m_tree.path("pics/f1004.swf"));
    EXPECT_EQ(m_list.selection().tile, 4);
}

TEST_F(SelectionTest, TakesEveryButton)
{
    press(onFirstPage(100, 80), Qt::RightButton);
    press(onFirstPage(100, 80), Qt::MiddleButton);
    EXPECT_EQ(m_clicks.count(), 2);
}

TEST_F(SelectionTest, CountsTheRightEdgeToTheTile)
{
    press(onFirstPage(88, 70));
    EXPECT_EQ(m_clicks.count(), 1);
    EXPECT_EQ(at(89, 35), kGreen);
    press(onFirstPage(89, 70));
    EXPECT_EQ(m_clicks.count(), 1);
    EXPECT_EQ(at(89, 35), kBlue); // nothing is highlighted any more
    EXPECT_EQ(m_list.selection().path, m_tree.path("pics/f1000.swf"));
}

TEST_F(SelectionTest, DrawsTheHighlightOnTheRing)
{
    press(onFirstPage(100, 80));
    EXPECT_EQ(at(92, 74), kGreen);
    EXPECT_EQ(at(164, 146), kGreen);
    EXPECT_EQ(at(93, 75), 0x808080U);
    press(onFirstPage(30, 30));
    EXPECT_EQ(at(92, 74), kBlue);
    EXPECT_EQ(at(17, 30), kGreen);
}

TEST_F(SelectionTest, TakesTheHighlightOffTheOldPage)
{
    press(onFirstPage(30, 30));
    m_list.surface().V_Scroll.setValue(600);
    press({5 + 100, 20 + 30}); // second page, second tile
    ASSERT_EQ(m_clicks.count(), 2);
    EXPECT_EQ(m_clicks[1][0].toInt(), 25);
    EXPECT_EQ(m_list.selection().page, 1);
    EXPECT_EQ(at(17, 30, 0), kBlue);
    EXPECT_EQ(at(92, 30, 1), kGreen);
}

TEST_F(SelectionTest, OpensTheSelectedTileByADoubleClick)
{
    clickTwice(onFirstPage(30, 30));
    EXPECT_EQ(m_clicks.count(), 1);
    ASSERT_EQ(m_doubleClicks.count(), 1);
    EXPECT_EQ(m_doubleClicks[0][0].toInt(), 0);
    EXPECT_EQ(m_doubleClicks[0][1].toString(), m_tree.path("pics/f1000.swf"));
    EXPECT_EQ(m_list.selection().path, "");
    QTest::mouseDClick(&m_list.surface().viewport, Qt::LeftButton, {}, onFirstPage(30, 30));
    EXPECT_EQ(m_doubleClicks.count(), 1);
}

TEST_F(SelectionTest, OpensTheOldTileByADoubleClickBetweenTiles)
{
    press(onFirstPage(30, 30));
    clickTwice(onFirstPage(91, 72));
    EXPECT_EQ(m_clicks.count(), 1);
    ASSERT_EQ(m_doubleClicks.count(), 1);
    EXPECT_EQ(m_doubleClicks[0][1].toString(), m_tree.path("pics/f1000.swf"));
}

TEST_F(SelectionTest, IgnoresPressesInPreviewsAndAlbums)
{
    press(onFirstPage(30, 30));
    m_list.surface().state.IsHtmlRun = true;
    press(onFirstPage(100, 80));
    EXPECT_EQ(m_clicks.count(), 1);
    clickTwice(onFirstPage(100, 80)); // a double click is heard, on what was selected
    EXPECT_EQ(m_doubleClicks.count(), 1);
    m_list.surface().state.IsHtmlRun = false;
    press(onFirstPage(30, 30));
    m_list.surface().state.IsPrintPreview = true;
    clickTwice(onFirstPage(30, 30));
    EXPECT_EQ(m_clicks.count(), 2);
    EXPECT_EQ(m_doubleClicks.count(), 1);
}

TEST_F(SelectionTest, DrawsABorderAroundTheFirstTileAfterAReset)
{
    m_list.Makegallery();
    m_list.surface().pages.frameBox(0, {17, -1, 89, 71}, kRed);
    press(onFirstPage(91, 72));
    EXPECT_EQ(at(17, 30), kBlue);
    EXPECT_EQ(m_clicks.count(), 0);
}

TEST_F(SelectionTest, FindsNothingInAnEmptyTable)
{
    m_tree.add({"empty/"});
    runFolder("empty");
    press(onFirstPage(0, 0));
    clickTwice(onFirstPage(30, 30));
    EXPECT_EQ(m_clicks.count(), 0);
    EXPECT_EQ(m_doubleClicks.count(), 0);
}

TEST_F(SelectionTest, HitsNothingBesideThePages)
{
    press({2, 300});
    press({100, 3});
    EXPECT_EQ(m_clicks.count(), 0);
}
