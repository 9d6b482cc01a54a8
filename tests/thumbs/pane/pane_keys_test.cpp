#include "base/twips.h"
#include "thumbs/pane/pane_fixture.h"

#include <QAccessible>
#include <QScrollBar>
#include <QSignalSpy>

// The pane without a pointer.
class PaneKeysTest : public PaneTest {
protected:
    void pressOn(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        QTest::keyClick(&widget, key, held);
    }

    // A folder whose tiles fill several pages.
    void startLarge()
    {
        for (int k = 0; k < 120; ++k) {
            m_tree.add({"pics/d" + std::to_string(1000 + k) + ".swf", "x"});
        }
        start();
        ASSERT_EQ(list().tiles().size(), 123U);
        ASSERT_GT(list().surface().V_Scroll.maximum(), 0);
    }

    [[nodiscard]] bool isInSight(int row)
    {
        const thumbs::TileRow* tile = list().tile(row);
        return list().surface().viewport.rect().contains(
            list().surface().viewport.tilePlace(tile->page, tile->box));
    }

    [[nodiscard]] QAccessibleInterface* reader()
    {
        return QAccessible::queryAccessibleInterface(&list());
    }
};

TEST_F(PaneKeysTest, ArrowsSelectTilesAsPressesDo)
{
    start();
    QSignalSpy clicks(&list(), &ThumbNailList::ThumbClick);
    pressOn(list(), Qt::Key_Right);
    EXPECT_EQ(m_main.Xiala(), m_tree.path("pics/a.bmp"));
    pressOn(list(), Qt::Key_Right);
    EXPECT_EQ(m_main.Xiala(), m_tree.path("pics/b.bmp"));
    EXPECT_EQ(m_pane->File1().listIndex(), 1);
    EXPECT_EQ(list().selectedTile(), 1);
    EXPECT_TRUE(m_main.log.contains("viewer picture 60x40"));
    pressOn(list(), Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(list().selectedTile(), 0);
    pressOn(list(), Qt::Key_Left);
    EXPECT_EQ(list().selectedTile(), 0);
    EXPECT_EQ(clicks.count(), 3);
}

TEST_F(PaneKeysTest, ReturnOpensTheTileEachTime)
{
    start();
    QSignalSpy clicks(&list(), &ThumbNailList::ThumbClick);
    QSignalSpy doubleClicks(&list(), &ThumbNailList::ThumbDblClick);
    pressOn(list(), Qt::Key_Right);
    pressOn(list(), Qt::Key_Right);
    for (int k = 1; k <= 2; ++k) {
        pressOn(list(), Qt::Key_Return);
        ASSERT_EQ(doubleClicks.count(), k);
        EXPECT_EQ(doubleClicks[k - 1][1].toString(), m_tree.path("pics/b.bmp"));
    }
    EXPECT_EQ(clicks.count(), 3); // the second Return has to select again
    pressOn(list(), Qt::Key_Enter);
    EXPECT_EQ(doubleClicks.count(), 3);
}

TEST_F(PaneKeysTest, ReturnOnAnUntouchedFolderOpensItsFirstFile)
{
    start();
    QSignalSpy doubleClicks(&list(), &ThumbNailList::ThumbDblClick);
    pressOn(list(), Qt::Key_Return);
    ASSERT_EQ(doubleClicks.count(), 1);
    EXPECT_EQ(doubleClicks[0][1].toString(), m_tree.path("pics/a.bmp"));
}

TEST_F(PaneKeysTest, DoesNothingInAnEmptyFolder)
{
    start();
    m_tree.add({"empty/"});
    m_pane->treeSelected(m_tree.path("empty"));
    letEventsRun();
    QSignalSpy clicks(&list(), &ThumbNailList::ThumbClick);
    QSignalSpy doubleClicks(&list(), &ThumbNailList::ThumbDblClick);
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_End, Qt::Key_Space, Qt::Key_Return}) {
        pressOn(list(), key);
    }
    EXPECT_EQ(clicks.count(), 0);
    EXPECT_EQ(doubleClicks.count(), 0);
}

// Nothing is left of a line of dots at the size of a tile.
TEST_F(PaneKeysTest, PassOverAFileWithoutATile)
{
    for (const char* name : {"0", "aa", "bb", "d"}) {
        QImage(10000, 10, QImage::Format_RGB32)
            .save(m_tree.path(std::string("pics/") + name + ".bmp"));
    }
    start();
    QStringList shown;
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Right, Qt::Key_Right, Qt::Key_Right,
                              Qt::Key_Left, Qt::Key_Home, Qt::Key_End}) {
        pressOn(list(), key);
        shown.append(m_main.Xiala().mid(m_tree.path("pics/").size()));
    }
    EXPECT_EQ(shown, (QStringList{"a.bmp", "b.bmp", "c.bmp", "c.bmp", "b.bmp", "a.bmp", "c.bmp"}));
}

TEST_F(PaneKeysTest, ReadersPassOverAFileWithoutATile)
{
    QImage(10000, 10, QImage::Format_RGB32).save(m_tree.path("pics/aa.bmp"));
    start();
    QStringList names;
    for (int k = 0; k < reader()->childCount(); ++k) {
        QAccessibleInterface* child = reader()->child(k);
        ASSERT_NE(child, nullptr) << k;
        if (child->role() == QAccessible::ListItem) {
            names.append(child->text(QAccessible::Name));
            EXPECT_EQ(reader()->indexOfChild(child), k);
        }
    }
    EXPECT_EQ(names, (QStringList{"a.bmp", "b.bmp", "c.bmp"}));
    reader()
        ->child(reader()->childCount() - 1)
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(m_main.Xiala(), m_tree.path("pics/c.bmp"));
}

TEST_F(PaneKeysTest, PagesTurnAndTheTileStaysInSight)
{
    startLarge();
    const int perPage = list().surface().state.grid.tilesPerPage();
    pressOn(list(), Qt::Key_Home);
    EXPECT_EQ(list().selectedTile(), 0);
    pressOn(list(), Qt::Key_PageDown);
    EXPECT_EQ(list().selectedTile(), perPage);
    EXPECT_EQ(list().selection().page, 1);
    EXPECT_TRUE(isInSight(perPage));
    pressOn(list(), Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(list().selection().page, 2);
    pressOn(list(), Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(list().selectedTile(), perPage);
    pressOn(list(), Qt::Key_End);
    EXPECT_EQ(list().selectedTile(), 122);
    EXPECT_TRUE(isInSight(122));
    pressOn(list(), Qt::Key_Home);
    EXPECT_TRUE(isInSight(0));
}

TEST_F(PaneKeysTest, KeysOfTheViewerMeanNothingHere)
{
    start();
    m_main.log.clear();
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_S, Qt::Key_F2, Qt::Key_F10}) {
        pressOn(list(), key);
    }
    EXPECT_TRUE(m_main.log.isEmpty()) << m_main.log.join(' ').toStdString();
}

TEST_F(PaneKeysTest, ReturnAndSpacePressTheButtons)
{
    start();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        const int before = m_runs;
        pressOn(m_pane->Tbmenub(8), key);
        letEventsRun();
        EXPECT_EQ(m_runs, before + 1) << key;
    }
}

TEST_F(PaneKeysTest, MovesTheSplitterWithinItsLimits)
{
    start();
    QWidget& splitter = *part("Splitter");
    const int lowest = base::pixelsFromTwips(thumbs::kSplitterMaximumTop);
    const int highest = part("Dir1")->y() + base::pixelsFromTwips(thumbs::kTreeMinimumHeight);
    pressOn(splitter, Qt::Key_End);
    EXPECT_EQ(splitter.y(), lowest);
    pressOn(splitter, Qt::Key_Up);
    const int step = lowest - splitter.y();
    EXPECT_GT(step, 0);
    EXPECT_EQ(part("Dir1")->geometry().bottom() + 1, splitter.y());
    pressOn(splitter, Qt::Key_Down);
    EXPECT_EQ(splitter.y(), lowest);
    pressOn(splitter, Qt::Key_Down);
    EXPECT_EQ(splitter.y(), lowest);
    pressOn(splitter, Qt::Key_Home);
    EXPECT_NEAR(splitter.y(), highest, 1);
    pressOn(splitter, Qt::Key_Left);
    EXPECT_NEAR(splitter.y(), highest, 1);
}

TEST_F(PaneKeysTest, ChangesTheWidthWithinItsLimits)
{
    start();
    QWidget& grip = *part("p1");
    const int widest = base::pixelsFromTwips(thumbs::kPaneMaximumWidth);
    const int width = m_pane->width();
    pressOn(grip, Qt::Key_Right);
    EXPECT_GT(m_pane->width(), width);
    pressOn(grip, Qt::Key_Left);
    EXPECT_EQ(m_pane->width(), width);
    pressOn(grip, Qt::Key_Up);
    EXPECT_EQ(m_pane->width(), width);
    pressOn(grip, Qt::Key_End);
    EXPECT_EQ(m_pane->width(), widest);
    pressOn(grip, Qt::Key_Home);
    EXPECT_EQ(m_pane->widthTwips(),
              base::twipsFromPixels(base::pixelsFromTwips(thumbs::kPaneMinimumWidth)));
}

TEST_F(PaneKeysTest, BarsShowTheFocus)
{
    start();
    for (const char* name : {"Splitter", "p1"}) {
        QWidget& bar = *part(name);
        bar.clearFocus();
        const QImage before = bar.grab().toImage();
        bar.setFocus(Qt::TabFocusReason);
        EXPECT_NE(bar.grab().toImage(), before) << name;
    }
    list().setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(list().findChild<QWidget*>("focusRing")->isVisible());
}

TEST_F(PaneKeysTest, AClickOnATileGivesTheViewerTheFocus)
{
    start();
    m_main.log.clear();
    clickTile(1);
    EXPECT_EQ(m_main.log.count("viewer focus"), 1);
    QTest::mouseDClick(&list().surface().viewport, Qt::LeftButton, {}, tile(1));
    EXPECT_EQ(m_main.log.count("viewer focus"), 2);
    QTest::mouseClick(&list().surface().viewport, Qt::LeftButton, {},
                      {1, list().surface().viewport.height() - 1});
    EXPECT_EQ(m_main.log.count("viewer focus"), 2); // no tile is there
}

TEST_F(PaneKeysTest, KeysOnTilesLeaveTheFocusThere)
{
    start();
    list().setFocus();
    pressOn(list(), Qt::Key_Right);
    pressOn(list(), Qt::Key_Return);
    pressOn(list(), Qt::Key_Space);
    EXPECT_FALSE(m_main.log.contains("viewer focus"));
    EXPECT_EQ(m_form.focusWidget(), &list());
    clickTile(2);
    EXPECT_TRUE(m_main.log.contains("viewer focus"));
}

TEST_F(PaneKeysTest, ReadsOutATileByItsFile)
{
    start();
    ASSERT_EQ(reader()->role(), QAccessible::List);
    QStringList names;
    for (int k = 0; k < reader()->childCount(); ++k) {
        QAccessibleInterface* child = reader()->child(k);
        ASSERT_NE(child, nullptr) << k;
        if (child->role() == QAccessible::ListItem) {
            names.append(child->text(QAccessible::Name));
            EXPECT_EQ(reader()->indexOfChild(child), k);
            EXPECT_EQ(child->parent(), reader());
            EXPECT_TRUE(child->isValid());
        }
    }
    EXPECT_EQ(names, (QStringList{"a.bmp", "b.bmp", "c.bmp"}));
    EXPECT_EQ(reader()->child(reader()->childCount()), nullptr);
}

TEST_F(PaneKeysTest, LetsAReaderPressATile)
{
    start();
    QAccessibleInterface* tile = reader()->child(reader()->childCount() - 1);
    EXPECT_FALSE(tile->state().selected);
    QAccessibleActionInterface* action = tile->actionInterface();
    ASSERT_NE(action, nullptr);
    EXPECT_EQ(action->actionNames(), QStringList{QAccessibleActionInterface::pressAction()});
    action->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(m_main.Xiala(), m_tree.path("pics/c.bmp"));
    EXPECT_TRUE(tile->state().selected);
    EXPECT_FALSE(tile->rect().isEmpty());
    m_form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_form));
    list().setFocus();
    EXPECT_EQ(reader()->focusChild(), tile);
    EXPECT_TRUE(tile->state().focused);
}

// A reader may hold on to a tile whose folder has gone.
TEST_F(PaneKeysTest, TilesOfAnotherFolderBecomeInvalid)
{
    start();
    QAccessibleInterface* tile = reader()->child(reader()->childCount() - 1);
    m_pane->treeSelected(m_tree.path("other"));
    letEventsRun();
    EXPECT_FALSE(tile->isValid());
    EXPECT_TRUE(tile->state().invalid);
    EXPECT_TRUE(tile->rect().isEmpty());
    EXPECT_TRUE(tile->text(QAccessible::Name).isEmpty());
    tile->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(list().selectedTile(), -1);
}

TEST_F(PaneKeysTest, ReadsTheBarsAsWhatTheyAre)
{
    start();
    EXPECT_EQ(QAccessible::queryAccessibleInterface(part("Splitter"))->role(),
              QAccessible::Splitter);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(part("p1"))->role(), QAccessible::Grip);
}
