#include "files/explorer/folder_tree.h"

#include "platform/os/subfolders.h"
#include "support/temp_tree.h"

#include <QAccessible>
#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimer>
#include <QTreeWidget>
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

using files::FolderTree;
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
            load();
            tree.close();
        });
        tree.open(
            host, m_files.path(start),
            [this](const QString& folder) {
                selections.append(folder);
                highlights.append(highlighted());
                if (whileTold) {
                    whileTold(folder);
                }
            },
            isShown);
    }

    // The name in the row that has the highlight, if that is the current one.
    [[nodiscard]] QString highlighted() const
    {
        const QList<QTreeWidgetItem*> rows = widget().selectedItems();
        return rows == QList{widget().currentItem()} ? rows.first()->text(0) : QString();
    }

    // Lets events run as often as the loading of a few files does.
    static void load()
    {
        constexpr int kFiles = 5;
        for (int i = 0; i < kFiles; ++i) {
            QApplication::processEvents();
        }
    }

    // Loads while the user does something.
    template<typename Input> void meanwhile(Input input)
    {
        QTimer::singleShot(0, &m_context, input);
        load();
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

    void click(QTreeWidgetItem* item, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        widget().scrollToItem(item);
        mouse(QEvent::MouseButtonPress, item, modifiers);
        mouse(QEvent::MouseButtonRelease, item, modifiers);
    }

    void mouse(QEvent::Type type, QTreeWidgetItem* item,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        const QPointF place = widget().visualItemRect(item).center();
        const bool isMove = type == QEvent::MouseMove;
        const bool isUp = type == QEvent::MouseButtonRelease;
        QMouseEvent event(type, place, widget().viewport()->mapToGlobal(place),
                          isMove ? Qt::NoButton : Qt::LeftButton,
                          isUp ? Qt::NoButton : Qt::LeftButton, modifiers);
        QApplication::sendEvent(widget().viewport(), &event);
    }

    void press(int key, const QString& text = {}) const
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(tree.widget(), &event);
    }

    QWidget host;
    FolderTree tree;
    QStringList selections;
    QStringList highlights; // when each of them was told
    std::function<void(const QString&)> whileTold;
    FolderTree::ShownTest isShown;

private:
    const TempTree& m_files;
    QObject m_context;
};

// Writes down what has the highlight whenever the tree is painted.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(const OpenTree& open)
        : m_open(open)
    {
        open.widget().viewport()->installEventFilter(this);
    }
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            painted = m_open.highlighted();
        }
        return false;
    }

    QString painted;

private:
    const OpenTree& m_open;
};

// The rows that a screen reader finds in a state.
struct Announced {
    QStringList current;
    QStringList selected;
};

Announced announced(QTreeWidget& tree)
{
    Announced rows;
    const QAccessibleInterface* view = QAccessible::queryAccessibleInterface(&tree);
    for (int i = 0; i < view->childCount(); ++i) {
        const QAccessibleInterface* row = view->child(i);
        if (row == nullptr || row->role() != QAccessible::TreeItem) {
            continue;
        }
        if (row->state().focused) {
            rows.current.append(row->text(QAccessible::Name));
        }
        if (row->state().selected) {
            rows.selected.append(row->text(QAccessible::Name));
        }
    }
    return rows;
}

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

TEST(Subfolders, AreLookedForToTheEndWhereItIsWanted)
{
    const TempTree files({{"links/", ""}, {"target", ""}});
    for (int i = 0; i < 100; ++i) {
        std::filesystem::create_symlink(files.native("target"),
                                        files.native("links/" + std::to_string(i)));
    }
    EXPECT_TRUE(platform::hasVisibleSubfolder(files.path("links")));
    EXPECT_FALSE(platform::hasVisibleSubfolder(files.path("links"), platform::Look::Thorough));
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
        EXPECT_EQ(open.widget().currentItem()->text(0), "two\u240Alines");
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

TEST(FolderTree, HighlightsAFolderBeforeItIsTold)
{
    const TempTree files({{"home/a/", ""}, {"home/b/", ""}});
    OpenTree open(files);
    open.run("home", [&] {
        open.home()->setExpanded(true);
        open.click(open.home()->child(0));
        OpenTree::load();
        open.click(open.home()->child(1));
        OpenTree::load();
        open.press(Qt::Key_Home);
    });
    EXPECT_EQ(open.highlights, QStringList({"Home", "a", "b", "Home"}));
}

TEST(FolderTree, PaintsTheHighlightBeforeItIsTold)
{
    const TempTree files({{"home/a/", ""}, {"home/b/", ""}});
    OpenTree open(files);
    open.run("home", [&] {
        const PaintWatch watch(open);
        QStringList painted;
        open.whileTold = [&](const QString&) { painted.append(watch.painted); };
        open.home()->setExpanded(true);
        OpenTree::load();
        open.click(open.home()->child(1));
        OpenTree::load();
        open.press(Qt::Key_Up);
        OpenTree::load();
        open.tree.select(files.path("home"));
        EXPECT_EQ(painted, QStringList({"b", "a", "Home"}));
        open.whileTold = nullptr;
    });
}

TEST(FolderTree, HighlightsTheFolderChosenWhileAnotherLoads)
{
    const TempTree files({{"home/a/", ""}, {"home/b/", ""}, {"home/c/", ""}});
    OpenTree open(files);
    open.whileTold = [&](const QString& folder) {
        if (folder == files.path("home/a")) {
            open.meanwhile([&] { open.click(open.home()->child(2)); });
            open.meanwhile([&] { open.click(open.home()->child(1)); });
        }
    };
    open.run("home", [&] {
        open.home()->setExpanded(true);
        for (int i = 0; i < 2; ++i) {
            open.click(open.home()->child(0));
            OpenTree::load();
            EXPECT_EQ(open.highlighted(), "b");
        }
    });
    EXPECT_EQ(open.highlights, QStringList({"Home", "a", "c", "b", "a", "c", "b"}));
    EXPECT_EQ(open.selections.last(), files.path("home/b"));
}

TEST(FolderTree, TellsAFolderWhileTheOneBeforeItLoads)
{
    const TempTree files({{"home/a/", ""}, {"home/b/", ""}});
    OpenTree open(files);
    QStringList order;
    open.whileTold = [&](const QString& folder) {
        order.append(folder);
        if (folder == files.path("home/a")) {
            open.meanwhile([&] { open.press(Qt::Key_Down); });
        }
        order.append("end of " + folder);
    };
    open.run("home", [&] {
        open.home()->setExpanded(true);
        open.press(Qt::Key_Down);
    });
    const QString home = files.path("home");
    const QString a = files.path("home/a");
    const QString b = files.path("home/b");
    EXPECT_EQ(order, QStringList({home, "end of " + home, a, b, "end of " + b, "end of " + a}));
}

TEST(FolderTree, EndsOnTheLastFolderOfManyThatAreGoneThrough)
{
    constexpr int kFolders = 40;
    const TempTree files;
    for (int i = 0; i < kFolders; ++i) {
        files.add({"home/" + std::to_string(100 + i) + "/", ""});
    }
    OpenTree open(files);
    open.whileTold = [&](const QString&) {
        open.meanwhile([&] {
            for (int i = 0; i < 2; ++i) {
                if (open.widget().currentItem() != open.home()->child(kFolders - 1)) {
                    open.press(Qt::Key_Down);
                }
            }
        });
    };
    open.run("home", [&] {
        open.home()->setExpanded(true);
        open.press(Qt::Key_Down);
        OpenTree::load();
        EXPECT_EQ(open.highlighted(), "139");
    });
    QStringList all = {"Home"};
    for (int i = 0; i < kFolders; ++i) {
        all.append(QString::number(100 + i));
    }
    QStringList told = open.selections;
    std::transform(told.begin(), told.end(), told.begin(), &platform::fileNameOf);
    told.first() = "Home";
    EXPECT_EQ(told, all);
    EXPECT_EQ(open.highlights.last(), "139");
}

TEST(FolderTree, TellsASelectionFromCodeBehindWhatWasChosenBefore)
{
    const TempTree files({{"home/a/", ""}, {"home/b/", ""}});
    OpenTree open(files);
    open.run("home", [&] {
        open.home()->setExpanded(true);
        open.click(open.home()->child(0));
        open.tree.select(files.path("home/b"));
        EXPECT_EQ(open.selections,
                  QStringList({files.path("home"), files.path("home/a"), files.path("home/b")}));
        EXPECT_EQ(open.highlighted(), "b");
    });
    EXPECT_EQ(open.selections.size(), 3);
}

TEST(FolderTree, TellsTheSelectedFolderAgainWhileAnotherIsShown)
{
    const TempTree files({{"home/a/", ""}, {"home/b/", ""}});
    OpenTree open(files);
    QString shown;
    open.isShown = [&](const QString& folder) { return folder == shown; };
    open.whileTold = [&](const QString& folder) { shown = folder; };
    open.run("home/a", [&] {
        QTreeWidgetItem* const a = open.home()->child(0);
        const std::function<void()> choices[] = {
            [&] { open.click(a); },
            [&] { open.press(Qt::Key_Return); },
            [&] { open.press(Qt::Key_Enter); },
            [&] { open.tree.select(files.path("home/a")); },
        };
        for (const auto& choose : choices) {
            open.selections.clear();
            choose();
            OpenTree::load();
            EXPECT_TRUE(open.selections.isEmpty());
            shown = files.path("elsewhere");
            choose();
            choose();
            OpenTree::load();
            EXPECT_EQ(open.selections, QStringList{files.path("home/a")});
            EXPECT_EQ(open.highlighted(), "a");
        }
        shown = files.path("elsewhere");
        a->setExpanded(true);
        open.click(open.home()->child(1));
        OpenTree::load();
        EXPECT_EQ(open.selections.last(), files.path("home/b"));
        EXPECT_EQ(open.selections.size(), 2);
    });
}

TEST(FolderTree, KeepsTheHighlightWhateverKeysAreHeld)
{
    const TempTree files({{"home/a/", ""}, {"home/b/", ""}});
    OpenTree open(files);
    open.run("home", [&] {
        open.home()->setExpanded(true);
        open.click(open.home()->child(0), Qt::ControlModifier);
        open.click(open.home()->child(0), Qt::ControlModifier);
        EXPECT_EQ(open.highlighted(), "a");
        QKeyEvent space(QEvent::KeyPress, Qt::Key_Space, Qt::ControlModifier, " ");
        QApplication::sendEvent(&open.widget(), &space);
        EXPECT_EQ(open.highlighted(), "a");
    });
}

TEST(FolderTree, HighlightsWhatIsDraggedOver)
{
    const TempTree files({{"home/a/", ""}, {"home/b/", ""}, {"home/c/", ""}});
    OpenTree open(files);
    open.whileTold = [](const QString&) { OpenTree::load(); };
    open.run("home", [&] {
        open.home()->setExpanded(true);
        open.mouse(QEvent::MouseButtonPress, open.home()->child(0));
        OpenTree::load();
        open.mouse(QEvent::MouseMove, open.home()->child(1));
        OpenTree::load();
        open.mouse(QEvent::MouseMove, open.home()->child(2));
        open.mouse(QEvent::MouseButtonRelease, open.home()->child(2));
        EXPECT_EQ(open.highlighted(), "c");
    });
    EXPECT_EQ(open.highlights, QStringList({"Home", "a", "b", "c"}));
}

TEST(FolderTree, EndsEachKeyOnTheFolderTold)
{
    const TempTree files({{"home/alps/", ""}, {"home/beach/", ""}, {"home/winter/x/", ""}});
    const struct {
        int key;
        const char* text;
        const char* folder;
        const char* row;
    } keys[] = {
        {Qt::Key_Down, "", "home/alps", "alps"}, {Qt::Key_W, "w", "home/winter", "winter"},
        {Qt::Key_Up, "", "home/beach", "beach"}, {Qt::Key_Home, "", "home", "Home"},
        {Qt::Key_Down, "", "home/alps", "alps"}, {Qt::Key_Left, "", "home", "Home"},
    };
    OpenTree open(files);
    open.whileTold = [](const QString&) { OpenTree::load(); };
    open.run("home", [&] {
        open.home()->setExpanded(true);
        for (const auto& key : keys) {
            open.press(key.key, QString::fromLatin1(key.text));
            OpenTree::load();
            EXPECT_EQ(open.highlighted(), key.row);
            EXPECT_EQ(open.highlights.last(), key.row);
            EXPECT_EQ(open.selections.last(), files.path(key.folder));
        }
    });
    EXPECT_EQ(open.selections.size(), 1 + int(std::size(keys)));
}

TEST(FolderTree, TellsScreenReadersTheFolderChosen)
{
    const TempTree files({{"home/a/", ""}, {"home/b/", ""}, {"home/c/", ""}});
    OpenTree open(files);
    QStringList expected;
    const auto expectAnnounced = [&](const char* name) {
        expected = {name};
        EXPECT_EQ(announced(open.widget()).current, expected);
        EXPECT_EQ(announced(open.widget()).selected, expected);
    };
    open.whileTold = [&](const QString& folder) {
        if (folder == files.path("home/a")) {
            expectAnnounced("a");
            open.meanwhile([&] { open.click(open.home()->child(2)); });
        }
    };
    open.run("home", [&] {
        expectAnnounced("Home");
        open.home()->setExpanded(true);
        open.click(open.home()->child(0)); // and "c" while it loads
        OpenTree::load();
        expectAnnounced("c");
        open.press(Qt::Key_Up);
        expectAnnounced("b");
        open.press(Qt::Key_Home);
        expectAnnounced("Home");
        open.press(Qt::Key_A, "a");
        OpenTree::load();
        expectAnnounced("c");
        open.tree.select(files.path("home/b"));
        expectAnnounced("b");
    });
}

TEST(FolderTree, HasRowsAsWideAsItIs)
{
    const TempTree files({{"home/a/b/", ""}});
    OpenTree open(files);
    open.run("home", [&] {
        const auto rowsEnd = [&] { return open.widget().visualItemRect(open.home()).right() + 1; };
        EXPECT_EQ(rowsEnd(), open.widget().viewport()->width());
        for (const int width : {200, 280, 120}) {
            open.tree.setGeometry(0, 0, width, 300);
            OpenTree::load();
            EXPECT_EQ(rowsEnd(), open.widget().viewport()->width());
            EXPECT_EQ(open.widget().horizontalScrollBar()->maximum(), 0);
        }
    });
}

TEST(FolderTree, ShowsNamesWhole)
{
    const std::string longName = "a trip to the lake with the whole family and both of the dogs";
    TempTree files;
    for (int i = 0; i < 60; ++i) {
        files.add({"home/folder " + std::to_string(100 + i) + "/", ""});
    }
    files.add({"home/z/" + longName + "/", ""});
    OpenTree open(files);
    open.run("home", [&] {
        open.home()->setExpanded(true);
        OpenTree::load();
        EXPECT_EQ(open.widget().horizontalScrollBar()->maximum(), 0);
        QTreeWidgetItem* const last = open.home()->child(60);
        last->setExpanded(true);
        open.widget().scrollToItem(open.home());
        OpenTree::load();
        const QModelIndex index = open.widget().currentIndex().model()->index(
            0, 0, open.widget().model()->index(60, 0, open.widget().model()->index(0, 0)));
        const int needed = open.widget().sizeHintForIndex(index).width();
        EXPECT_GT(needed, open.widget().viewport()->width());
        EXPECT_GE(open.widget().visualItemRect(last->child(0)).width(), needed);
        open.widget().scrollToBottom();
        OpenTree::load();
        EXPECT_GE(open.widget().visualItemRect(last->child(0)).width(), needed);
        QScrollBar& bar = *open.widget().horizontalScrollBar();
        bar.setValue(bar.maximum());
        EXPECT_EQ(open.widget().visualItemRect(last->child(0)).right() + 1,
                  open.widget().viewport()->width());
        last->setExpanded(false);
        OpenTree::load();
        EXPECT_EQ(bar.maximum(), 0);
        last->setExpanded(true);
        OpenTree::load();
        EXPECT_GE(open.widget().visualItemRect(last->child(0)).width(), needed);
        QFont larger = open.widget().font();
        larger.setPixelSize(40);
        open.widget().setFont(larger);
        OpenTree::load();
        EXPECT_GT(open.widget().sizeHintForIndex(index).width(), needed);
        EXPECT_GE(open.widget().visualItemRect(last->child(0)).width(),
                  open.widget().sizeHintForIndex(index).width());
    });
}

TEST(FolderTree, BringsADeepFolderIntoSightSideways)
{
    const TempTree files({{"home/1/2/3/4/5/6/7/8/9/pictures/", ""}});
    OpenTree open(files);
    open.host.resize(170, 400);
    open.run("home/1/2/3/4/5/6/7/8/9/pictures", [&] {
        OpenTree::load();
        const QRect row = open.widget().visualItemRect(open.widget().currentItem());
        const int name = open.widget().sizeHintForIndex(open.widget().currentIndex()).width();
        EXPECT_GE(row.left(), 0);
        EXPECT_LE(row.left() + name, open.widget().viewport()->width());
        open.press(Qt::Key_Home);
        EXPECT_EQ(open.widget().horizontalScrollBar()->value(), 0);
    });
}
