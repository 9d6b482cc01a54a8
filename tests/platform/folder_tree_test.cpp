#include "platform/folder_tree.h"

#include "platform/subfolders.h"
#include "support/temp_tree.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTimer>
#include <QTreeWidget>
#include <filesystem>
#include <gtest/gtest.h>

using platform::FolderTree;
using support::TempTree;

namespace {

// Opens a tree, runs the steps inside its loop, and closes it.
class OpenTree {
public:
    explicit OpenTree(const TempTree& files)
        : m_files(files)
    {
        host.resize(300, 400);
        host.show();
    }

    template<typename Steps> void run(const std::string& start, Steps steps)
    {
        QTimer::singleShot(0, &m_context, [&, steps] {
            steps();
            tree.close();
        });
        tree.open(host, m_files.path(start),
                  [this](const QString& folder) { selections.append(folder); });
    }

    [[nodiscard]] QTreeWidget& widget() const { return *static_cast<QTreeWidget*>(tree.widget()); }
    [[nodiscard]] QTreeWidgetItem* home() const { return widget().topLevelItem(0); }

    // The folders below an item, as shown.
    static QStringList below(const QTreeWidgetItem* item)
    {
        QStringList names;
        for (int i = 0; i < item->childCount(); ++i) {
            names.append(item->child(i)->text(0));
        }
        return names;
    }

    static bool hasMarker(const QTreeWidgetItem* item)
    {
        return item->childIndicatorPolicy() == QTreeWidgetItem::ShowIndicator;
    }

    void click(QTreeWidgetItem* item) const
    {
        widget().scrollToItem(item);
        const QPointF place = widget().visualItemRect(item).center();
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, place, widget().viewport()->mapToGlobal(place), Qt::LeftButton,
                              type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                              Qt::NoModifier);
            QApplication::sendEvent(widget().viewport(), &event);
        }
    }

    void press(int key) const
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(tree.widget(), &event);
    }

    QWidget host;
    FolderTree tree;
    QStringList selections;

private:
    const TempTree& m_files;
    QObject m_context;
};

} // namespace

TEST(Subfolders, AreVisibleFoldersInOrder)
{
    const TempTree files({{"p/b/", ""},
                          {"p/A/", ""},
                          {"p/.hidden/", ""},
                          {"p/bad\xFF/", ""},
                          {"p/file", ""},
                          {"target/", ""}});
    std::filesystem::create_symlink(files.native("target"), files.native("p/link"));
    std::filesystem::create_symlink(files.native("none"), files.native("p/dangling"));
    const std::vector<QString> expected = {"A", "b", platform::fromNative("bad\xFF"), "link"};
    EXPECT_EQ(platform::visibleSubfolders(files.path("p")), expected);
    EXPECT_TRUE(platform::visibleSubfolders(files.path("p/file")).empty());
    EXPECT_TRUE(platform::visibleSubfolders(files.path("none")).empty());
}

TEST(Subfolders, AreFoundOutAtTheFirst)
{
    const TempTree files({{"with/sub/", ""}, {"only/.hidden/", ""}, {"only/file", ""}});
    EXPECT_TRUE(platform::hasVisibleSubfolder(files.path("with")));
    EXPECT_FALSE(platform::hasVisibleSubfolder(files.path("only")));
    EXPECT_FALSE(platform::hasVisibleSubfolder(files.path("none")));
}

TEST(FolderTree, RunsUntilItIsClosed)
{
    const TempTree files({{"home/pics/", ""}});
    OpenTree open(files);
    EXPECT_FALSE(open.tree.isOpen());
    EXPECT_EQ(open.tree.widget(), nullptr);
    bool ran = false;
    open.run("home/pics", [&] {
        ran = true;
        EXPECT_TRUE(open.tree.isOpen());
        EXPECT_EQ(open.widget().parentWidget(), &open.host);
        EXPECT_TRUE(open.widget().isVisible());
        EXPECT_EQ(open.widget().accessibleName(), "Folders");
    });
    EXPECT_TRUE(ran);
    EXPECT_FALSE(open.tree.isOpen());
    EXPECT_EQ(open.tree.widget(), nullptr);
    EXPECT_EQ(open.tree.selected(), "");
    open.tree.close();
    EXPECT_EQ(open.selections, QStringList({files.path("home/pics")}));

    open.run("home", [] {});
    EXPECT_EQ(open.selections.last(), files.path("home"));
}

TEST(FolderTree, HasHomeAndTheFileSystemAsRoots)
{
    const TempTree files({{"home/pics/", ""}});
    OpenTree open(files);
    open.run("home", [&] {
        ASSERT_GE(open.widget().topLevelItemCount(), 2);
        EXPECT_EQ(open.home()->text(0), "Home");
        EXPECT_EQ(open.widget().topLevelItem(1)->text(0), "File system");
        EXPECT_FALSE(open.home()->icon(0).isNull());
        EXPECT_EQ(open.tree.selected(), files.path("home"));
    });
}

TEST(FolderTree, FallsBackToTheHomeFolder)
{
    const TempTree files({{"home/pics/", ""}});
    OpenTree open(files);
    open.run("none", [&] { EXPECT_EQ(open.tree.selected(), files.path("home")); });
    EXPECT_EQ(open.selections, QStringList({files.path("home")}));
}

TEST(FolderTree, FallsBackToTheRootWithoutAHomeFolder)
{
    TempTree files;
    files.setVariable("HOME", files.native("nowhere"));
    OpenTree open(files);
    open.run("none", [&] { EXPECT_EQ(open.tree.selected(), "/"); });
    EXPECT_EQ(open.selections, QStringList({"/"}));
}

TEST(FolderTree, ReadsABranchWhenItIsOpened)
{
    const TempTree files({{"home/b/inner/", ""},
                          {"home/A/", ""},
                          {"home/.hidden/", ""},
                          {"home/file", ""},
                          {"home/only/.hidden/", ""}});
    OpenTree open(files);
    open.run("home", [&] {
        QTreeWidgetItem* const home = open.home();
        EXPECT_TRUE(OpenTree::hasMarker(home));
        EXPECT_EQ(home->childCount(), 0);
        home->setExpanded(true);
        ASSERT_EQ(OpenTree::below(home), QStringList({"A", "b", "only"}));
        EXPECT_FALSE(OpenTree::hasMarker(home->child(0)));
        EXPECT_TRUE(OpenTree::hasMarker(home->child(1)));
        EXPECT_EQ(home->child(1)->childCount(), 0);
        EXPECT_FALSE(OpenTree::hasMarker(home->child(2)));
    });
}

TEST(FolderTree, ReadsABranchAgainWhenItIsOpenedAgain)
{
    const TempTree files({{"home/a/x/", ""}, {"home/b/", ""}, {"home/d/", ""}});
    OpenTree open(files);
    open.run("home/a/x", [&] {
        QTreeWidgetItem* const home = open.home();
        const QTreeWidgetItem* const a = home->child(0);
        home->setExpanded(false);
        files.remove("home/d");
        files.add({"home/0/", ""});
        files.add({"home/c/", ""});
        files.add({"home/e/", ""});
        files.add({"home/b/new/", ""});
        home->setExpanded(true);
        EXPECT_EQ(OpenTree::below(home), QStringList({"0", "a", "b", "c", "e"}));
        EXPECT_EQ(home->child(1), a);
        EXPECT_TRUE(OpenTree::hasMarker(home->child(2)));
        EXPECT_EQ(open.tree.selected(), files.path("home/a/x"));
    });
    EXPECT_EQ(open.selections, QStringList({files.path("home/a/x")}));
}

TEST(FolderTree, CallsOnceForEachSelection)
{
    const TempTree files({{"home/a/", ""}, {"home/b/c/", ""}});
    OpenTree open(files);
    open.run("home", [&] {
        open.home()->setExpanded(true);
        open.click(open.home()->child(0));
        open.click(open.home()->child(0));
        open.tree.select(files.path("home/b/c"));
        open.tree.select(files.path("home/b/c"));
        open.tree.select(files.path("home/b/c/"));
        open.click(open.home()->child(1));
        open.press(Qt::Key_Up);
    });
    EXPECT_EQ(open.selections,
              QStringList({files.path("home"), files.path("home/a"), files.path("home/b/c"),
                           files.path("home/b"), files.path("home/a")}));
}

TEST(FolderTree, OpensTheBranchesOnTheWay)
{
    const TempTree files({{"home/a/b/c/", ""}, {"outside/x/", ""}});
    OpenTree open(files);
    open.run("home", [&] {
        open.tree.select(files.path("home/a/b/c"));
        EXPECT_TRUE(open.home()->isExpanded());
        EXPECT_TRUE(open.home()->child(0)->isExpanded());
        EXPECT_EQ(open.widget().currentItem()->text(0), "c");
        open.tree.select(files.path("outside/x"));
        EXPECT_EQ(open.tree.selected(), files.path("outside/x"));
        EXPECT_TRUE(open.widget().topLevelItem(1)->isExpanded());
    });
}

TEST(FolderTree, LeavesTheSelectionForAFolderThatDoesntExist)
{
    const TempTree files({{"home/a/", ""}, {"home/file", ""}});
    OpenTree open(files);
    open.run("home/a", [&] {
        for (const char* const name : {"home/none", "home/file", "home/file/x"}) {
            open.tree.select(files.path(name));
        }
        open.tree.select("");
        open.tree.select("relative");
        EXPECT_EQ(open.tree.selected(), files.path("home/a"));
    });
    EXPECT_EQ(open.selections.size(), 1);
}

TEST(FolderTree, ShowsAHiddenFolderThatWasNamed)
{
    const TempTree files({{"home/.config/x/", ""}, {"home/a/", ""}, {"home/b/", ""}});
    OpenTree open(files);
    open.run("home/.config/x", [&] {
        EXPECT_EQ(open.tree.selected(), files.path("home/.config/x"));
        EXPECT_EQ(OpenTree::below(open.home()), QStringList({".config", "a", "b"}));
        open.home()->setExpanded(false);
        files.add({"home/aa/", ""});
        open.home()->setExpanded(true);
        EXPECT_EQ(OpenTree::below(open.home()), QStringList({".config", "a", "aa", "b"}));
    });
}

TEST(FolderTree, FindsAFolderThatIsNewSinceItsBranchWasRead)
{
    const TempTree files({{"home/a/", ""}, {"home/c/", ""}});
    OpenTree open(files);
    open.run("home/a", [&] {
        files.add({"home/b/", ""});
        open.tree.select(files.path("home/b"));
        EXPECT_EQ(open.tree.selected(), files.path("home/b"));
        EXPECT_EQ(OpenTree::below(open.home()), QStringList({"a", "b", "c"}));
    });
}

TEST(FolderTree, KeepsOddNames)
{
    const TempTree files({{"home/bad\xFF/two\nlines/", ""}});
    OpenTree open(files);
    open.run("home/bad\xFF/two\nlines", [&] {
        EXPECT_EQ(open.tree.selected(), files.path("home/bad\xFF/two\nlines"));
        EXPECT_EQ(open.widget().currentItem()->text(0), "two lines");
    });
}

TEST(FolderTree, SurvivesAFolderThatVanishes)
{
    const TempTree files({{"home/a/x/", ""}, {"home/b/", ""}});
    OpenTree open(files);
    open.run("home", [&] {
        QTreeWidgetItem* const home = open.home();
        home->setExpanded(true);
        files.remove("home/a");
        home->child(0)->setExpanded(true);
        EXPECT_FALSE(OpenTree::hasMarker(home->child(0)));
        open.click(home->child(0));
        EXPECT_EQ(open.tree.selected(), files.path("home/a"));
        home->setExpanded(false);
        home->setExpanded(true);
        EXPECT_EQ(OpenTree::below(home), QStringList({"b"}));
        EXPECT_EQ(open.tree.selected(), files.path("home"));
    });
    EXPECT_EQ(open.selections,
              QStringList({files.path("home"), files.path("home/a"), files.path("home")}));
}

TEST(FolderTree, FollowsTheGeometryThatItIsGiven)
{
    const TempTree files;
    OpenTree open(files);
    open.tree.setGeometry(1, 2, 3, 4);
    open.run("home", [&] {
        open.tree.setGeometry(0, 0, 281, 398);
        EXPECT_EQ(open.widget().geometry(), QRect(0, 0, 281, 398));
    });
}

TEST(FolderTree, ClosesWithItsHost)
{
    const TempTree files;
    FolderTree tree;
    auto* const host = new QWidget;
    QTimer::singleShot(0, qApp, [&] { delete host; });
    int selections = 0;
    tree.open(*host, files.path("home"), [&](const QString&) { ++selections; });
    EXPECT_FALSE(tree.isOpen());
    EXPECT_EQ(selections, 1);
}

TEST(FolderTree, MayBeClosedByItsHandler)
{
    const TempTree files({{"home/a/", ""}});
    QWidget host;
    FolderTree tree;
    tree.open(host, files.path("home"), [&](const QString&) { tree.close(); });
    EXPECT_FALSE(tree.isOpen());

    QTimer::singleShot(0, qApp, [&] { tree.select(files.path("home/a")); });
    tree.open(host, files.path("home"), [&](const QString& folder) {
        if (folder == files.path("home/a")) {
            tree.close();
        }
    });
    EXPECT_FALSE(tree.isOpen());
}

TEST(FolderTree, LetsItsHandlerSelectAnotherFolder)
{
    const TempTree files({{"home/a/", ""}, {"home/b/", ""}});
    QWidget host;
    FolderTree tree;
    QStringList selections;
    QTimer::singleShot(0, qApp, [&] {
        tree.select(files.path("home/a"));
        EXPECT_EQ(tree.selected(), files.path("home/b"));
        tree.close();
    });
    tree.open(host, files.path("home"), [&](const QString& folder) {
        selections.append(folder);
        if (folder == files.path("home/a")) {
            tree.select(files.path("home/b"));
        }
    });
    EXPECT_EQ(selections,
              QStringList({files.path("home"), files.path("home/a"), files.path("home/b")}));
}

TEST(FolderTree, IsWalkedByKeys)
{
    const TempTree files({{"home/a/", ""}, {"home/b/", ""}});
    OpenTree open(files);
    open.run("home", [&] {
        open.press(Qt::Key_Right);
        EXPECT_TRUE(open.home()->isExpanded());
        open.press(Qt::Key_Down);
        open.press(Qt::Key_Down);
        open.press(Qt::Key_Left);
    });
    EXPECT_EQ(open.selections, QStringList({files.path("home"), files.path("home/a"),
                                            files.path("home/b"), files.path("home")}));
}
