#include "files/explorer/explorer_events.h"
#include "files/explorer/explorer_fixture.h"
#include "support/fake_dialogs.h"
#include "widgets/plain_tip.h"

#include <QApplication>
#include <QHelpEvent>
#include <QMetaMethod>
#include <QToolTip>

using CtlExplorer = files::ExplorerFixture;
using P = files::ExplorerProperties;

namespace {

// A signature with the types' own names; the description of a class has some of them so.
std::string plainSignature(QByteArray signature)
{
    return signature.replace("qint16", "short").replace("qint32", "int").toStdString();
}

} // namespace

TEST_F(CtlExplorer, DeclaresItsEventsInTheirOrder)
{
    const QMetaObject& meta = ctlExplorer::staticMetaObject;
    int method = meta.methodOffset();
    for (const files::EventRow& row : files::eventRows()) {
        const QByteArray expected = QByteArray(row.name) + '(' + row.arguments + ')';
        EXPECT_EQ(meta.method(method).methodType(), QMetaMethod::Signal);
        EXPECT_EQ(plainSignature(meta.method(method++).methodSignature()),
                  plainSignature(expected));
    }
}

TEST_F(CtlExplorer, ShowsOneViewByItsStyle)
{
    make(0);
    EXPECT_TRUE(view("TreeView1").isVisible());
    EXPECT_FALSE(view("ListView1").isVisible());
    explorer().set(&P::Style, 1);
    EXPECT_FALSE(view("TreeView1").isVisible());
    EXPECT_TRUE(view("ListView1").isVisible());
    EXPECT_EQ(view("ListView1").geometry(), explorer().rect());
    EXPECT_EQ(explorer().FileCount(), 4);
    explorer().set(&P::Style, 7);
    EXPECT_FALSE(view("TreeView1").isVisible());
    EXPECT_FALSE(view("ListView1").isVisible());
}

TEST_F(CtlExplorer, TellsASetPathByItsStyle)
{
    make(0);
    explorer().setPath(disk.path("d/a"));
    EXPECT_EQ(log, QStringList({"FolderExpand " + disk.path("d/"), "Change",
                                "FolderExpand " + disk.path("d/a"), "Change", "Change",
                                "FolderClick " + disk.path("d/a")}));
    EXPECT_EQ(explorer().path(), disk.path("d/a"));
    EXPECT_EQ(view("TreeView1").currentIndex().data(files::KeyRole), disk.path("d/a"));
    EXPECT_TRUE(view("TreeView1").isExpanded(driveIndex()));
    make(1);
    explorer().setPath(disk.path("d/a"));
    EXPECT_EQ(log, QStringList({"Change", "FileClick " + disk.path("d/a")}));
    EXPECT_EQ(explorer().FileCount(), 1);
}

TEST_F(CtlExplorer, TellsClicksOnNodes)
{
    make(0);
    QTreeView& tree = view("TreeView1");
    EXPECT_TRUE(tree.isExpanded(driveIndex().parent()));
    for (int i = 0; i < 2; ++i) {
        click(tree, driveIndex());
        EXPECT_EQ(log, QStringList({"FolderClick " + disk.path("d/"), "Change", "Click"}));
        log.clear();
    }
    EXPECT_EQ(explorer().path(), disk.path("d/"));
    EXPECT_EQ(explorer().SelectedFolder(), disk.path("d/"));
    EXPECT_EQ(explorer().SelectedFile(), "");
    click(tree, driveIndex().parent());
    EXPECT_EQ(log, QStringList({"RootClick 1", "Click"}));
}

TEST_F(CtlExplorer, ExpandsAndCollapsesWithTheView)
{
    make(0);
    QTreeView& tree = view("TreeView1");
    tree.expand(driveIndex());
    EXPECT_EQ(tree.model()->rowCount(driveIndex()), 2);
    EXPECT_EQ(log, QStringList({"FolderExpand " + disk.path("d/"), "Change"}));
    tree.setCurrentIndex(tree.model()->index(0, 0, driveIndex()));
    EXPECT_EQ(explorer().path(), disk.path("d/a"));
    log.clear();
    tree.collapse(driveIndex());
    EXPECT_EQ(tree.model()->rowCount(driveIndex()), 1);
    EXPECT_EQ(log, QStringList({"FolderCollapse " + disk.path("d/")}));
    EXPECT_EQ(tree.currentIndex(), driveIndex());
    EXPECT_EQ(explorer().path(), disk.path("d/"));
}

TEST_F(CtlExplorer, TellsClicksOnItemsByTheirTags)
{
    make(1);
    QTreeView& list = view("ListView1");
    click(list, item(0));
    EXPECT_EQ(log, QStringList({"FolderClick " + disk.path("d/a"), "Click"}));
    EXPECT_EQ(explorer().SelectedFolder(), disk.path("d/a"));
    EXPECT_EQ(explorer().SelectedFile(), "");
    log.clear();
    click(list, item(2));
    EXPECT_EQ(log, QStringList({"FileClick " + disk.path("d/one.jpg"), "Click"}));
    EXPECT_EQ(explorer().SelectedFolder(), "");
    EXPECT_EQ(explorer().SelectedFile(), disk.path("d/one.jpg"));
    EXPECT_EQ(explorer().SelectedCount(), 1);
}

TEST_F(CtlExplorer, HasSelectedAnItemBeforeItTellsThePress)
{
    for (const bool isMulti : {false, true}) {
        bag.write("MultiSelect", isMulti, false);
        make(1);
        QStringList selected;
        const auto note = [&] {
            selected.append(explorer().SelectedFile() + explorer().SelectedFolder());
        };
        QObject::connect(&explorer(), &ctlExplorer::FileClick, &explorer(), note);
        QObject::connect(&explorer(), &ctlExplorer::FolderClick, &explorer(), note);
        for (const int row : {0, 2, 3}) {
            click(view("ListView1"), item(row));
            EXPECT_TRUE(explorer().FileSelected(row + 1));
        }
        EXPECT_EQ(selected,
                  QStringList({disk.path("d/a"), disk.path("d/one.jpg"), disk.path("d/two.txt")}));
    }
}

TEST_F(CtlExplorer, SelectsNothingOfAnotherFolderThatAPressLists)
{
    for (const bool isMulti : {false, true}) {
        bag.write("MultiSelect", isMulti, false);
        make(1);
        QObject::connect(&explorer(), &ctlExplorer::FolderClick, &explorer(),
                         [this] { explorer().setPath(disk.path("d/a")); });
        click(view("ListView1"), item(0));
        EXPECT_EQ(explorer().FileCount(), 1);
        EXPECT_EQ(explorer().SelectedCount(), 0);
        EXPECT_EQ(log, QStringList({"FolderClick " + disk.path("d/a"), "Change",
                                    "FileClick " + disk.path("d/a")}));
    }
}

TEST_F(CtlExplorer, SelectsTheNodeThatAHandlerOfAPressGoesTo)
{
    make(0);
    QTreeView& tree = view("TreeView1");
    tree.expand(driveIndex());
    bool goes = true;
    QObject::connect(&explorer(), &ctlExplorer::FolderClick, &explorer(), [&] {
        if (std::exchange(goes, false)) {
            explorer().setPath(disk.path("d/b"));
        }
    });
    QTest::mousePress(tree.viewport(), Qt::LeftButton, {},
                      tree.visualRect(tree.model()->index(0, 0, driveIndex())).center());
    EXPECT_EQ(explorer().SelectedFolder(), disk.path("d/b"));
    EXPECT_EQ(tree.selectionModel()->selectedIndexes(), QModelIndexList({tree.currentIndex()}));
    EXPECT_EQ(tree.currentIndex().data().toString(), "b");
}

// What a handler of a press waits for may be a key in the same view.
TEST_F(CtlExplorer, TellsAKeyWhileAHandlerOfAPressIsAtWork)
{
    bag.write("View", files::kReportView, 0);
    make(1);
    QObject::connect(&explorer(), &ctlExplorer::FolderClick, &explorer(), [this] {
        if (explorer().SelectedFolder() == disk.path("d/a")) {
            QTest::keyClick(&view("ListView1"), Qt::Key_Down);
        }
    });
    QTest::mousePress(view("ListView1").viewport(), Qt::LeftButton, {},
                      view("ListView1").visualRect(item(0)).center());
    EXPECT_EQ(log,
              QStringList({"FolderClick " + disk.path("d/a"), "FolderClick " + disk.path("d/b")}));
}

TEST_F(CtlExplorer, TellsADoubleClickAheadOfWhatItMeans)
{
    make(1);
    QTreeView& list = view("ListView1");
    const auto told = [&](int row) {
        doubleClick(list, item(row));
        const QStringList last = log.mid(log.indexOf("DblClick"), 2);
        log.clear();
        return last;
    };
    EXPECT_EQ(told(0), QStringList({"DblClick", "FolderDblClick " + disk.path("d/a")}));
    EXPECT_EQ(told(3), QStringList({"DblClick", "FileDblClick " + disk.path("d/two.txt")}));
    explorer().ListRootFolder(files::RootType::WorkSpace);
    EXPECT_EQ(told(0), QStringList({"DblClick", "RootDblClick 1"}));
    EXPECT_EQ(told(1), QStringList({"DblClick", "RootDblClick 0"}));
    EXPECT_EQ(told(2), QStringList({"DblClick", "RootDblClick 2"}));
}

TEST_F(CtlExplorer, TellsMarksThatTheUserSets)
{
    bag.write("CheckBoxes", true, false);
    make(1);
    QAbstractItemModel& items = *view("ListView1").model();
    items.setData(item(2), Qt::Checked, Qt::CheckStateRole);
    EXPECT_EQ(log, QStringList({"FileCheck " + disk.path("d/one.jpg") + " true"}));
    log.clear();
    explorer().setFileChecked(1, true);
    EXPECT_EQ(log, QStringList());
    EXPECT_TRUE(explorer().FileChecked(1));
    EXPECT_EQ(explorer().CheckedCount(), 2);
    make(0);
    QAbstractItemModel& nodes = *view("TreeView1").model();
    nodes.setData(driveIndex(), Qt::Checked, Qt::CheckStateRole);
    nodes.setData(driveIndex().parent(), Qt::Checked, Qt::CheckStateRole);
    EXPECT_EQ(log, QStringList({"FolderCheck " + disk.path("d/") + " true", "Change",
                                "RootCheck 1 true", "Change"}));
    EXPECT_TRUE(explorer().FolderChecked(3));
    explorer().setFolderChecked(3, false);
    EXPECT_EQ(explorer().CheckedCount(), 1);
}

TEST_F(CtlExplorer, PassesOverIndexesOutside)
{
    bag.write("View", 3, 0);
    make(1);
    for (const int index : {-1, 0, 5}) {
        explorer().setFileChecked(index, true);
        explorer().setFileSelected(index, true);
        EXPECT_FALSE(explorer().FileChecked(index));
        EXPECT_FALSE(explorer().FileSelected(index));
        explorer().setFolderChecked(index, true);
        EXPECT_FALSE(explorer().FolderChecked(index));
    }
    EXPECT_EQ(explorer().CheckedCount() + explorer().SelectedCount(), 0);
    EXPECT_EQ(explorer().ColumnWidth(99), std::nullopt);
    EXPECT_EQ(explorer().ColumnWidth(0), std::nullopt);
    EXPECT_FALSE(explorer().setColumnWidth(6, 10));
    EXPECT_TRUE(explorer().setColumnWidth(1, 123));
    EXPECT_EQ(explorer().ColumnWidth(1), 123);
}

TEST_F(CtlExplorer, PassesOverNodesOutside)
{
    bag.write("CheckBoxes", true, false);
    make(0);
    const int nodes = explorer().FolderCount();
    ASSERT_GT(nodes, 2);
    for (const int index : {-1, 0, nodes + 1}) {
        explorer().setFolderChecked(index, true);
        EXPECT_FALSE(explorer().FolderChecked(index));
    }
    EXPECT_EQ(explorer().CheckedCount(), 0);
    explorer().setFolderChecked(nodes, true);
    EXPECT_TRUE(explorer().FolderChecked(nodes));
}

TEST_F(CtlExplorer, CountsByItsStyle)
{
    make(1);
    EXPECT_EQ(explorer().FolderCount(), 2);
    EXPECT_EQ(explorer().SubFolderCount(), 0);
    EXPECT_EQ(explorer().ColumnCount(), 5);
    EXPECT_EQ(explorer().FileIndex(disk.path("d/b")), 2);
    EXPECT_EQ(explorer().FileIndex(disk.path("d/c")), 0);
    explorer().setFileSelected(2, true);
    explorer().setFileSelected(3, true);
    EXPECT_EQ(explorer().SelectedCount(), 1);
    explorer().set(&P::MultiSelect, true);
    explorer().setFileSelected(1, true);
    EXPECT_EQ(explorer().SelectedCount(), 2);
    make(0);
    EXPECT_EQ(explorer().SelectedCount(), 0);
    explorer().setPath(disk.path("d"));
    EXPECT_EQ(explorer().SelectedCount(), 0); // the drive's key has a separator at its end
    explorer().setPath(disk.path("d/a"));
    EXPECT_EQ(explorer().SelectedCount(), 1);
    EXPECT_EQ(explorer().SubFolderCount(), 1);
}

TEST_F(CtlExplorer, ClearsTheViewThatItShows)
{
    make(1);
    explorer().set(&P::Style, 0);
    const int nodes = explorer().FolderCount();
    EXPECT_GT(nodes, 0);
    explorer().set(&P::Style, 1);
    explorer().Clear();
    EXPECT_EQ(explorer().FileCount(), 0);
    explorer().set(&P::Style, 0);
    EXPECT_EQ(explorer().FolderCount(), nodes);
    explorer().Clear();
    EXPECT_EQ(explorer().FolderCount(), 0);
}

TEST_F(CtlExplorer, ReadsWhatIsHiddenBeforeItsFirstTreeAndNeverAgain)
{
    bag.write("HideNetwork", true, false);
    make(0);
    const int nodes = explorer().FolderCount();
    explorer().set(&P::HideNetwork, false);
    explorer().RefreshView();
    EXPECT_EQ(explorer().FolderCount(), nodes);
    bag.write("HideNetwork", false, false);
    make(0);
    EXPECT_EQ(explorer().FolderCount(), nodes + 2);
}

TEST_F(CtlExplorer, ListsAnewForAnotherFilter)
{
    make(1);
    QStringList told;
    QObject::connect(&explorer(), &ctlExplorer::PropertyChanged, &explorer(),
                     [&](const QString& name) { told.append(name); });
    explorer().set(&P::Filter, "*.txt");
    EXPECT_EQ(explorer().FileCount(), 3);
    explorer().set(&P::ShowFolders, false);
    EXPECT_EQ(explorer().FileCount(), 1);
    explorer().set(&P::HoverSelection, true);
    EXPECT_EQ(told, QStringList({"Filter", "ShowFolders", "HoverSelection"}));
}

TEST_F(CtlExplorer, ShowsFoldersFirstAgainAfterTheApplets)
{
    places.appletList = {{"/z", "z"}, {"/b", "B"}};
    make(1);
    explorer().ListRootFolder(files::RootType::ControlPanel);
    EXPECT_EQ(item(0).data(), "B");
    EXPECT_TRUE(explorer().properties().Sorted);
    explorer().RefreshView();
    EXPECT_EQ(item(0).data(), "a");
    EXPECT_EQ(item(2).data(), "one.jpg");
    explorer().set(&P::SortOrder, 1);
    EXPECT_EQ(item(0).data(), "b");
    EXPECT_EQ(item(2).data(), "two.txt");
}

TEST_F(CtlExplorer, ShowsColumnsInTheReportView)
{
    make(1);
    EXPECT_TRUE(view("ListView1").isColumnHidden(1));
    EXPECT_TRUE(view("ListView1").isHeaderHidden());
    explorer().set(&P::View, 3);
    EXPECT_FALSE(view("ListView1").isColumnHidden(1));
    EXPECT_FALSE(view("ListView1").isHeaderHidden());
    explorer().set(&P::HideColumnHeaders, true);
    EXPECT_TRUE(view("ListView1").isHeaderHidden());
}

TEST_F(CtlExplorer, KeepsItsProperties)
{
    make(1);
    explorer().set(&P::View, 3);
    core::PropertyBag kept;
    explorer().writeProperties(kept);
    EXPECT_EQ(kept.read("View", 0), 3);
    EXPECT_EQ(kept.read("Style", 0), 1);
    EXPECT_EQ(kept.read("Path", ""), disk.path("d"));
    EXPECT_EQ(kept.values().size(), 3U);
}

TEST_F(CtlExplorer, PassesKeysAndThePointerOn)
{
    make(1);
    const auto numbers = [this](const char* event) {
        return [this, event](auto... arguments) {
            QStringList line = {event};
            (line.append(QString::number(arguments)), ...);
            log.append(line.join(u' '));
        };
    };
    ctlExplorer& e = explorer();
    QObject::connect(&e, &ctlExplorer::KeyDown, &e, numbers("KeyDown"));
    QObject::connect(&e, &ctlExplorer::KeyPress, &e, numbers("KeyPress"));
    QObject::connect(&e, &ctlExplorer::KeyUp, &e, numbers("KeyUp"));
    QObject::connect(&e, &ctlExplorer::MouseDown, &e, numbers("MouseDown"));
    QObject::connect(&e, &ctlExplorer::MouseUp, &e, numbers("MouseUp"));
    QTreeView& list = view("ListView1");
    QTest::keyClick(&list, Qt::Key_F5);
    EXPECT_EQ(log, QStringList({"KeyDown 116 0", "KeyUp 116 0"}));
    log.clear();
    QTest::keyClick(&list, Qt::Key_Escape);
    EXPECT_EQ(log, QStringList({"KeyDown 27 0", "KeyPress 27", "KeyUp 27 0"}));
    log.clear();
    QTest::mouseClick(list.viewport(), Qt::RightButton, Qt::ControlModifier, {20, 500});
    EXPECT_EQ(log, QStringList({"MouseDown 2 2 300 7500", "MouseUp 2 2 300 7500"}));
}

TEST_F(CtlExplorer, SaysWhatItIs)
{
    support::FakeDialogs dialogs;
    ctlExplorer::AboutBox();
    ASSERT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_TRUE(dialogs.boxes[0].text.startsWith(
        "Control to show files and folder like Windows Explorer.\r\n"));
}

TEST_F(CtlExplorer, TellsANameThatIsCutShortInATip)
{
    const QString name = "Tom & \"Jerry\" <b>in a long name";
    disk.add({"d/" + name.toStdString(), ""});
    make(1);
    explorer().set(&P::View, 3);
    QTreeView& list = view("ListView1");
    const QModelIndex index = list.model()->match(item(0), Qt::DisplayRole, name).value(0);
    ASSERT_TRUE(index.isValid());
    explorer().resize(60, 600);
    const QPoint place = list.visualRect(index).topLeft() + QPoint(5, 5);
    QHelpEvent ask(QEvent::ToolTip, place, list.viewport()->mapToGlobal(place));
    QApplication::sendEvent(list.viewport(), &ask);
    EXPECT_EQ(QToolTip::text(), widgets::plainTip(name));
    QToolTip::hideText();
}
