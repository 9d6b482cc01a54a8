#include "files/explorer/explorer_fixture.h"

#include <QAccessible>
#include <QLineEdit>

using P = files::ExplorerProperties;

namespace {

// Names edited in their place, and everything that keys alone do.
class CtlExplorerKeys : public files::ExplorerFixture {
protected:
    void makeWith(int style)
    {
        make(style);
        ctlExplorer& e = explorer();
        QObject::connect(&e, &ctlExplorer::BeforeRename, &e, [this](qint16* cancel) {
            log.append("BeforeRename");
            *cancel = before;
        });
        QObject::connect(&e, &ctlExplorer::AfterRename, &e,
                         [this](qint16* cancel, const QString& name) {
                             log.append("AfterRename " + name);
                             *cancel = after;
                         });
        QTest::qWait(0);
    }
    QTreeView& list() { return view("ListView1"); }
    QTreeView& tree() { return view("TreeView1"); }

    // The name's field, once a key has opened it; null if it didn't.
    static QLineEdit* edited(QTreeView& view)
    {
        QTest::keyClick(&view, Qt::Key_F2);
        return view.findChild<QLineEdit*>();
    }
    static void finish(QLineEdit& field, const QString& text, Qt::Key key)
    {
        field.setText(text);
        QTest::keyClick(&field, key);
        QTest::qWait(0);
    }
    int current() { return list().currentIndex().row(); }

    qint16 before = 0;
    qint16 after = 0;
};

} // namespace

TEST_F(CtlExplorerKeys, AnEditedNameIsShownAndNothingElseChanges)
{
    makeWith(1);
    list().setCurrentIndex(item(2));
    log.clear();
    QLineEdit* const field = edited(list());
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->text(), "one.jpg");
    finish(*field, "new.png", Qt::Key_Return);
    EXPECT_EQ(log, QStringList({"BeforeRename", "AfterRename new.png"}));
    EXPECT_EQ(item(2).data(), "new.png");
    EXPECT_EQ(item(2).data(files::KeyRole), disk.path("d/one.jpg"));
    EXPECT_EQ(explorer().FileIndex(disk.path("d/one.jpg")), 3);
    EXPECT_TRUE(disk.exists("d/one.jpg"));
    EXPECT_FALSE(disk.exists("d/new.png"));
}

TEST_F(CtlExplorerKeys, AnEditedNodeKeepsItsKeyAndWhatIsBelow)
{
    makeWith(0);
    tree().expand(driveIndex());
    const QModelIndex folder = tree().model()->index(0, 0, driveIndex());
    tree().setCurrentIndex(folder);
    QLineEdit* const field = edited(tree());
    ASSERT_NE(field, nullptr);
    finish(*field, "renamed", Qt::Key_Return);
    EXPECT_EQ(folder.data(), "renamed");
    EXPECT_EQ(explorer().path(), disk.path("d/a"));
    tree().expand(folder);
    EXPECT_EQ(tree().model()->index(0, 0, folder).data(files::KeyRole), disk.path("d/a/x"));
    EXPECT_TRUE(disk.exists("d/a"));
}

TEST_F(CtlExplorerKeys, AHandlerKeepsANameFromBeingEdited)
{
    before = 1;
    for (const int style : {0, 1}) {
        makeWith(style);
        QTreeView& shown = style == 0 ? tree() : list();
        shown.setCurrentIndex(style == 0 ? driveIndex() : item(2));
        log.clear();
        EXPECT_EQ(edited(shown), nullptr);
        EXPECT_EQ(log, QStringList({"BeforeRename"}));
    }
}

TEST_F(CtlExplorerKeys, AHandlerKeepsTheOldName)
{
    after = 1;
    for (const int style : {0, 1}) {
        makeWith(style);
        QTreeView& shown = style == 0 ? tree() : list();
        shown.setCurrentIndex(style == 0 ? driveIndex() : item(2));
        const QVariant name = shown.currentIndex().data();
        QLineEdit* const field = edited(shown);
        ASSERT_NE(field, nullptr);
        finish(*field, "other", Qt::Key_Return);
        EXPECT_EQ(log.last(), "AfterRename other");
        EXPECT_EQ(shown.currentIndex().data(), name);
    }
}

TEST_F(CtlExplorerKeys, EscapeLeavesTheNameUntold)
{
    makeWith(1);
    list().setCurrentIndex(item(2));
    QLineEdit* const field = edited(list());
    ASSERT_NE(field, nullptr);
    finish(*field, "other", Qt::Key_Escape);
    EXPECT_EQ(log.last(), "BeforeRename");
    EXPECT_EQ(item(2).data(), "one.jpg");
}

TEST_F(CtlExplorerKeys, AHandlerMayListTheFolderAnew)
{
    makeWith(1);
    QObject::connect(&explorer(), &ctlExplorer::AfterRename, &explorer(),
                     [this](qint16*, const QString&) {
                         disk.add({"d/aa.jpg", ""});
                         explorer().RefreshView();
                     });
    list().setCurrentIndex(item(2));
    QLineEdit* const field = edited(list());
    ASSERT_NE(field, nullptr);
    finish(*field, "other", Qt::Key_Return);
    EXPECT_EQ(item(2).data(), "aa.jpg");
    EXPECT_EQ(item(3).data(), "one.jpg");
}

TEST_F(CtlExplorerKeys, NamesAreEditedByCodeAloneWhenLabelEditSaysSo)
{
    bag.write("LabelEdit", 1, 0);
    makeWith(1);
    list().setCurrentIndex(item(2));
    EXPECT_EQ(edited(list()), nullptr);
    list().edit(item(2));
    EXPECT_NE(list().findChild<QLineEdit*>(), nullptr);
}

TEST_F(CtlExplorerKeys, ArrowsWalkThroughEveryView)
{
    makeWith(1);
    const auto press = [&](Qt::Key key) {
        QTest::keyClick(&list(), key);
        return current();
    };
    for (std::int16_t mode = 0; mode < 4; ++mode) {
        explorer().set(&P::View, mode);
        list().setCurrentIndex(item(0));
        const Qt::Key forward = mode < 2 ? Qt::Key_Right : Qt::Key_Down;
        const Qt::Key back = mode < 2 ? Qt::Key_Left : Qt::Key_Up;
        EXPECT_EQ(press(forward), 1) << mode;
        EXPECT_EQ(press(Qt::Key_End), 3) << mode;
        EXPECT_EQ(press(back), 2) << mode;
        EXPECT_EQ(press(Qt::Key_Home), 0) << mode;
        EXPECT_EQ(press(Qt::Key_PageDown), 3) << mode;
        EXPECT_EQ(press(Qt::Key_PageUp), 0) << mode;
        EXPECT_EQ(press(Qt::Key_T), 3) << mode;
        EXPECT_EQ(explorer().SelectedFile(), disk.path("d/two.txt")) << mode;
        QTest::qWait(QApplication::keyboardInputInterval() + 50);
    }
}

TEST_F(CtlExplorerKeys, ShiftSelectsAllBetweenTwoItems)
{
    bag.write("MultiSelect", true, false);
    makeWith(1);
    for (std::int16_t mode = 0; mode < 4; ++mode) {
        explorer().set(&P::View, mode);
        click(list(), item(3));
        QTest::keyClick(&list(), Qt::Key_Home, Qt::ShiftModifier);
        EXPECT_EQ(explorer().SelectedCount(), 4) << mode;
        click(list(), item(1));
        QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::ShiftModifier,
                          list().visualRect(item(3)).center());
        EXPECT_EQ(explorer().SelectedCount(), 3) << mode;
        EXPECT_FALSE(explorer().FileSelected(1)) << mode;
        QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::ControlModifier,
                          list().visualRect(item(2)).center());
        EXPECT_EQ(explorer().SelectedCount(), 2) << mode;
        QTest::keyClick(&list(), Qt::Key_A, Qt::ControlModifier);
        EXPECT_EQ(explorer().SelectedCount(), 4) << mode;
    }
}

TEST_F(CtlExplorerKeys, ABandSelectsTheItemsItTouches)
{
    bag.write("MultiSelect", true, false);
    makeWith(1);
    const QPoint from(list().viewport()->width() - 3, list().viewport()->height() - 3);
    const QPoint to = list().visualRect(item(2)).center();
    QTest::mousePress(list().viewport(), Qt::LeftButton, {}, from);
    for (const QPoint place : {from - QPoint(30, 30), to}) {
        QMouseEvent move(QEvent::MouseMove, place, list().viewport()->mapToGlobal(QPointF(place)),
                         Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(list().viewport(), &move);
    }
    QTest::mouseRelease(list().viewport(), Qt::LeftButton, {}, to);
    EXPECT_TRUE(explorer().FileSelected(3));
    EXPECT_FALSE(explorer().FileSelected(1));
}

TEST_F(CtlExplorerKeys, TakingTheFocusTellsNothing)
{
    for (const int style : {0, 1}) {
        makeWith(style);
        QTreeView& shown = style == 0 ? tree() : list();
        explorer().activateWindow();
        shown.setFocus();
        ASSERT_TRUE(QTest::qWaitFor([&] { return shown.hasFocus(); }));
        EXPECT_EQ(log, QStringList());
        QTest::keyClick(&shown, Qt::Key_Down);
        EXPECT_EQ(log.size(), 1);
        EXPECT_EQ(shown.currentIndex(), shown.model()->index(0, 0));
    }
}

TEST_F(CtlExplorerKeys, ReturnIsADoubleClickInTheList)
{
    makeWith(1);
    list().setCurrentIndex(item(0));
    log.clear();
    QTest::keyClick(&list(), Qt::Key_Return);
    EXPECT_EQ(log, QStringList({"DblClick", "FolderDblClick " + disk.path("d/a")}));
    log.clear();
    list().setCurrentIndex(item(3));
    QTest::keyClick(&list(), Qt::Key_Enter);
    EXPECT_EQ(log.last(), "FileDblClick " + disk.path("d/two.txt"));
}

TEST_F(CtlExplorerKeys, SpaceSetsTheMark)
{
    bag.write("CheckBoxes", true, false);
    for (std::int16_t mode = 0; mode < 4; ++mode) {
        bag.write("View", mode, 0);
        makeWith(1);
        list().setCurrentIndex(item(2));
        log.clear();
        QTest::keyClick(&list(), Qt::Key_Space);
        EXPECT_EQ(log, QStringList({"FileCheck " + disk.path("d/one.jpg") + " true"})) << mode;
        EXPECT_TRUE(explorer().FileChecked(3));
    }
    makeWith(0);
    tree().setCurrentIndex(driveIndex());
    log.clear();
    QTest::keyClick(&tree(), Qt::Key_Space);
    EXPECT_EQ(log, QStringList({"FolderCheck " + disk.path("d/") + " true", "Change"}));
}

TEST_F(CtlExplorerKeys, PlusAndMinusOpenAndCloseABranch)
{
    makeWith(0);
    tree().setCurrentIndex(driveIndex());
    QTest::keyClick(&tree(), Qt::Key_Plus);
    EXPECT_TRUE(tree().isExpanded(driveIndex()));
    QTest::keyClick(&tree(), Qt::Key_Minus);
    EXPECT_FALSE(tree().isExpanded(driveIndex()));
    QTest::keyClick(&tree(), Qt::Key_Right);
    EXPECT_TRUE(tree().isExpanded(driveIndex()));
    QTest::keyClick(&tree(), Qt::Key_Left);
    EXPECT_FALSE(tree().isExpanded(driveIndex()));
}

TEST_F(CtlExplorerKeys, AnAsteriskOpensOneBranchAlone)
{
    makeWith(0);
    tree().setCurrentIndex(driveIndex());
    QTest::keyClick(&tree(), Qt::Key_Asterisk);
    EXPECT_TRUE(tree().isExpanded(driveIndex()));
    EXPECT_FALSE(tree().isExpanded(tree().model()->index(0, 0, driveIndex())));
}

TEST_F(CtlExplorerKeys, AReaderFindsTheViewsAndTheirItems)
{
    makeWith(1);
    QAccessibleInterface* const view = QAccessible::queryAccessibleInterface(&list());
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->text(QAccessible::Name), "Files");
    QStringList names;
    for (int child = 0; child < view->childCount(); ++child) {
        names.append(view->child(child)->text(QAccessible::Name));
    }
    EXPECT_TRUE(names.contains("one.jpg"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&tree())->text(QAccessible::Name), "Folders");
}
