#include "files/explorer/explorer_tree.h"

#include "files/explorer/fake_places.h"
#include "files/explorer/logged_events.h"
#include "platform/os/paths.h"
#include "support/ordinary_user.h"
#include "support/temp_tree.h"

#include <QStringList>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

using files::ExplorerTree;
using files::FakePlaces;
using files::HiddenPlaces;
using files::ImageRole;
using files::LoggedEvents;
using files::NodeTag;
using files::TreeNode;
using support::OrdinaryUser;
using support::TempTree;

namespace {

QStringList texts(const TreeNode& node)
{
    QStringList result;
    for (const auto& child : node.children) {
        result.append(child->isPlaceholder() ? QStringLiteral("...") : child->text);
    }
    return result;
}

// A tree over one drive, the folder "d" of a temporary tree.
class ExplorerTreeTest : public testing::Test {
protected:
    ExplorerTreeTest()
    {
        places.driveList = {{disk.path("d"), platform::DriveType::Fixed, "Data", "", true}};
        disk.add({"d/", ""});
    }

    void load() { tree.LoadTreeRoots("", {true, true, true, true}); }
    TreeNode& drive() { return *tree.nodeAt(3); }
    TreeNode& child(TreeNode& node, int row)
    {
        return *node.children.at(static_cast<std::size_t>(row));
    }
    TreeNode& openDrive()
    {
        load();
        tree.expand(drive());
        events.log.clear();
        events.told.clear();
        return drive();
    }

    TempTree disk;
    FakePlaces places;
    LoggedEvents events;
    ExplorerTree tree = ExplorerTree(places, events);
};

} // namespace

TEST(ExplorerTree, BeginsWithPlacesAndDrives)
{
    const FakePlaces places;
    LoggedEvents events;
    ExplorerTree tree(places, events);
    tree.LoadTreeRoots("", {});
    ASSERT_NE(tree.root(), nullptr);
    EXPECT_EQ(tree.root()->key(), "Root_WorkSpace");
    EXPECT_EQ(texts(*tree.root()), QStringList({"My Computer", "Network", "Control Panel"}));
    const TreeNode& computer = *tree.nodeAt(2);
    EXPECT_EQ(computer.key(), "Root_MyComputer");
    EXPECT_EQ(texts(computer),
              QStringList({"Local Disk (C:)", " (D:)", "//host/share (E:)", "Pictures", "My"}));
    QStringList keys;
    for (const auto& child : computer.children) {
        keys.append(child->key());
        EXPECT_EQ(child->tag, NodeTag::Unloaded);
        ASSERT_EQ(child->children.size(), 1U);
        EXPECT_EQ(child->children[0]->key(), child->key() + "_empty_child");
    }
    EXPECT_EQ(keys, QStringList({"C:/", "D:/", "E:/", "/home/me/Pictures", "/home/me/My.Docs"}));
    EXPECT_TRUE(tree.root()->isExpanded && computer.isExpanded);
    EXPECT_EQ(tree.root()->tag, NodeTag::None);
    EXPECT_EQ(computer.tag, NodeTag::None);
    const TreeNode& network = *tree.root()->children[1];
    EXPECT_EQ(network.key(), "/run/user/1/gvfs");
    EXPECT_EQ(texts(network), QStringList({"..."}));
    const TreeNode& panel = *tree.root()->children[2];
    EXPECT_EQ(panel.key(), "Root_ControlPanel");
    EXPECT_EQ(panel.tag, NodeTag::Unloaded);
    EXPECT_TRUE(panel.children.empty());
    EXPECT_EQ(tree.nodeCount(), 15);
    EXPECT_EQ(events.log, QStringList());
    EXPECT_EQ(events.told, std::vector<int>({0}));
}

TEST(ExplorerTree, LeavesHiddenPlacesOut)
{
    const FakePlaces places;
    LoggedEvents events;
    const auto rows = [&](const HiddenPlaces& hidden) {
        ExplorerTree tree(places, events);
        tree.LoadTreeRoots("", hidden);
        return texts(*tree.root()) + texts(*tree.nodeAt(2)).mid(3);
    };
    const QString computer = "My Computer";
    EXPECT_EQ(rows({true, false, false, false}),
              QStringList({computer, "Network", "Control Panel", "My"}));
    EXPECT_EQ(rows({false, true, false, false}),
              QStringList({computer, "Network", "Control Panel", "Pictures"}));
    EXPECT_EQ(rows({false, false, true, false}),
              QStringList({computer, "Control Panel", "Pictures", "My"}));
    EXPECT_EQ(rows({false, false, false, true}),
              QStringList({computer, "Network", "Pictures", "My"}));
}

TEST(ExplorerTree, IsBuiltOnce)
{
    FakePlaces places;
    LoggedEvents events;
    ExplorerTree tree(places, events);
    tree.LoadTreeRoots("", {});
    places.driveList.clear();
    events.told.clear();
    tree.LoadTreeRoots("", {true, true, true, true});
    EXPECT_EQ(tree.nodeCount(), 15);
    EXPECT_TRUE(events.told.empty());
    tree.Clear();
    EXPECT_EQ(tree.root(), nullptr);
    EXPECT_EQ(tree.nodeCount(), 0);
    EXPECT_EQ(tree.nodeAt(1), nullptr);
}

TEST(ExplorerTree, ShowsAPlaceOnceThatPlaysTwoParts)
{
    FakePlaces places;
    places.documentsPath = places.favoritesPath;
    LoggedEvents events;
    ExplorerTree tree(places, events);
    tree.LoadTreeRoots("", {});
    EXPECT_EQ(tree.nodeAt(2)->children.size(), 4U);
}

TEST(ExplorerTree, HangsOnePlaceWithoutAFolderUnderAnEmptyKey)
{
    FakePlaces places;
    places.favoritesPath = "";
    places.documentsPath = "";
    LoggedEvents events;
    ExplorerTree tree(places, events);
    tree.LoadTreeRoots("", {});
    EXPECT_EQ(texts(*tree.nodeAt(2)).mid(3), QStringList({""}));
    TreeNode& place = *tree.nodeAt(2)->children.back();
    tree.expand(place);
    EXPECT_TRUE(place.children.empty());
}

TEST_F(ExplorerTreeTest, ReadsABranchWhenItIsExpanded)
{
    for (const char* const name : {"d/b/deep/", "d/A/", "d/.hidden/", "d/c/.hidden/"}) {
        disk.add({name, ""});
    }
    disk.add({"d/file", ""});
    load();
    events.told.clear();
    tree.expand(drive());
    EXPECT_EQ(texts(drive()), QStringList({"A", "b", "c"}));
    EXPECT_EQ(drive().tag, NodeTag::Loaded);
    EXPECT_EQ(events.told, std::vector<int>({33, 67, 100, 0}));
    EXPECT_EQ(events.log, QStringList({"FolderExpand " + disk.path("d/"), "Change"}));
    const TreeNode& withoutFolders = child(drive(), 0);
    EXPECT_TRUE(withoutFolders.children.empty());
    EXPECT_EQ(withoutFolders.tag, NodeTag::None);
    const TreeNode& withFolders = child(drive(), 1);
    EXPECT_EQ(withFolders.tag, NodeTag::Unloaded);
    EXPECT_EQ(withFolders.key(), disk.path("d/b"));
    ASSERT_EQ(texts(withFolders), QStringList({"..."}));
    EXPECT_EQ(withFolders.children[0]->key(), disk.path("d/b") + u'\a');
    EXPECT_TRUE(child(drive(), 2).children.empty());
}

TEST_F(ExplorerTreeTest, DoesNothingForABranchThatHasBeenRead)
{
    disk.add({"d/a/", ""});
    TreeNode& node = openDrive();
    disk.add({"d/b/", ""});
    tree.expand(node);
    node.isExpanded = false;
    tree.expand(node);
    EXPECT_EQ(texts(node), QStringList({"a"}));
    EXPECT_EQ(events.log, QStringList());
}

TEST_F(ExplorerTreeTest, KeepsOneChildOfACollapsedBranchAndReadsItAnew)
{
    disk.add({"d/a/", ""});
    disk.add({"d/b/", ""});
    TreeNode& node = openDrive();
    tree.collapse(node);
    EXPECT_EQ(texts(node), QStringList({"b"}));
    EXPECT_EQ(node.children[0]->row, 0);
    EXPECT_EQ(node.tag, NodeTag::Unloaded);
    EXPECT_EQ(events.log, QStringList({"FolderCollapse " + disk.path("d/")}));
    disk.add({"d/c/", ""});
    tree.expand(node);
    EXPECT_EQ(texts(node), QStringList({"a", "b", "c"}));
}

TEST_F(ExplorerTreeTest, KeepsWhatTheTwoNodesAtTheTopHave)
{
    load();
    const int before = tree.nodeCount();
    for (const int index : {1, 2}) {
        tree.collapse(*tree.nodeAt(index));
        EXPECT_FALSE(tree.nodeAt(index)->isExpanded);
        tree.expand(*tree.nodeAt(index));
    }
    EXPECT_EQ(tree.nodeCount(), before);
    EXPECT_EQ(events.log, QStringList());
}

TEST_F(ExplorerTreeTest, TellsTheRootOfTheControlPanel)
{
    tree.LoadTreeRoots("", {true, true, true, false});
    TreeNode& panel = child(*tree.root(), 1);
    tree.expand(panel);
    tree.collapse(panel);
    EXPECT_EQ(events.log, QStringList({"RootExpand 2", "RootCollapse 2"}));
}

TEST_F(ExplorerTreeTest, TakesAFolderForARootByItsName)
{
    disk.add({"d/Root_My Computer in the workspace/sub/", ""});
    TreeNode& node = child(openDrive(), 0);
    tree.expand(node);
    EXPECT_EQ(events.log, QStringList({"RootExpand 1", "RootExpand 0"}));
    EXPECT_EQ(texts(node), QStringList({"sub"}));
}

TEST_F(ExplorerTreeTest, PutsTheFoldersOfADriveBesideItsPlaceholderOnce)
{
    disk.add({"d/a/", ""});
    tree.LoadTreeRoots(disk.path("d/"), {true, true, true, true});
    EXPECT_EQ(texts(drive()), QStringList({"...", "a"}));
    EXPECT_EQ(drive().tag, NodeTag::Unloaded);
    disk.add({"d/b/", ""});
    tree.expand(drive());
    EXPECT_EQ(texts(drive()), QStringList({"a", "b"}));
}

TEST_F(ExplorerTreeTest, LoadsNothingForAPathThatIsNoDrive)
{
    disk.add({"d/a/b/", ""});
    tree.LoadTreeRoots(disk.path("d/a/"), {true, true, true, true});
    EXPECT_EQ(texts(drive()), QStringList({"..."}));
    EXPECT_EQ(events.told, std::vector<int>({100, 0}));
}

TEST_F(ExplorerTreeTest, MarksFoldersOfOtherMachines)
{
    disk.add({"d/share/", ""});
    places.networkPath = disk.path("d");
    tree.LoadTreeRoots("", {true, true, false, true});
    tree.expand(child(*tree.root(), 1));
    EXPECT_EQ(tree.root()->children[1]->children.at(0)->image, ImageRole::NetworkFolder);
    tree.expand(drive());
    EXPECT_EQ(child(drive(), 0).image, ImageRole::Folder);
}

TEST_F(ExplorerTreeTest, HasNoChildrenWhereNothingCanBeRead)
{
    disk.add({"d/closed/a/", ""});
    disk.add({"d/going/a/", ""});
    TreeNode& node = openDrive();
    disk.remove("d/going");
    ::chmod(disk.native("").c_str(), 0755);
    ::chmod(disk.native("d/closed").c_str(), 0311);
    const OrdinaryUser user;
    for (const int row : {0, 1}) {
        tree.expand(child(node, row));
        EXPECT_TRUE(child(node, row).children.empty());
        EXPECT_EQ(child(node, row).tag, NodeTag::Loaded);
    }
    EXPECT_EQ(events.told, std::vector<int>({0, 0}));
}

TEST_F(ExplorerTreeTest, LooksIntoFoldersAsTheUserMay)
{
    disk.add({"d/closed/a/", ""});
    disk.add({"d/open/a/", ""});
    ::chmod(disk.native("").c_str(), 0755);
    ::chmod(disk.native("d/closed").c_str(), 0311);
    const OrdinaryUser user;
    TreeNode& node = openDrive();
    EXPECT_TRUE(child(node, 0).children.empty());
    EXPECT_EQ(child(node, 1).children.size(), 1U);
}

TEST_F(ExplorerTreeTest, FollowsALoopOfLinksAStepAtATime)
{
    disk.add({"d/a/", ""});
    std::filesystem::create_symlink("..", disk.native("d/a/up"));
    std::filesystem::create_symlink("self", disk.native("d/self"));
    TreeNode* node = &openDrive();
    EXPECT_EQ(texts(*node), QStringList({"a"}));
    for (int i = 0; i < 3; ++i) {
        node = &child(*node, 0);
        tree.expand(*node);
        EXPECT_EQ(texts(*node), QStringList({"up"}));
        node = &child(*node, 0);
        tree.expand(*node);
        EXPECT_EQ(texts(*node), QStringList({"a"}));
    }
    EXPECT_EQ(node->key(), disk.path("d/a/up/a/up/a/up"));
}

TEST_F(ExplorerTreeTest, KeepsUnrulyNames)
{
    for (const std::string name : {"line\nbreak", "bad\xFF", " blank", "Trip 12:30"}) {
        disk.add({"d/" + name + "/x/", ""});
    }
    TreeNode& node = openDrive();
    ASSERT_EQ(node.children.size(), 4U);
    for (const auto& folder : node.children) {
        tree.expand(*folder);
        EXPECT_EQ(texts(*folder), QStringList({"x"})) << folder->text.toStdString();
        EXPECT_EQ(tree.ExpandToPath(folder->key() + "/x")->key(), folder->key() + "/x");
    }
}

TEST_F(ExplorerTreeTest, WalksToAPathExpandingAndSelecting)
{
    disk.add({"d/a/", ""});
    disk.add({"d/b/c/e/", ""});
    load();
    const TreeNode* const reached = tree.ExpandToPath(disk.path("d/b/c").toUpper());
    EXPECT_EQ(reached->key(), disk.path("d/b/c"));
    EXPECT_EQ(tree.selected(), reached);
    EXPECT_TRUE(drive().isExpanded && reached->parent->isExpanded && reached->isExpanded);
    EXPECT_EQ(texts(*reached), QStringList({"e"}));
}

TEST_F(ExplorerTreeTest, HasAFolderInItsBranchThatIsAPlaceToo)
{
    disk.add({"d/a/x/", ""});
    places.documentsPath = disk.path("d/a");
    tree.LoadTreeRoots("", {true, false, true, true});
    tree.expand(drive());
    EXPECT_EQ(texts(drive()), QStringList({"a"}));
    const TreeNode& place = *drive().nextSibling();
    EXPECT_EQ(place.key(), child(drive(), 0).key());
    EXPECT_EQ(tree.ExpandToPath(disk.path("d/a/x"))->parent, &child(drive(), 0));
    EXPECT_FALSE(place.isExpanded);
}

TEST_F(ExplorerTreeTest, TakesTheFirstKeyThatThePathBeginsWith)
{
    disk.add({"d/data/x/", ""});
    disk.add({"d/Data2/x/", ""});
    load();
    EXPECT_EQ(tree.ExpandToPath(disk.path("d/Data2/x"))->key(), disk.path("d/data"));
}

TEST_F(ExplorerTreeTest, StopsOnTheWayWhereThereIsNothingMore)
{
    disk.add({"d/a/", ""});
    load();
    EXPECT_EQ(tree.ExpandToPath(disk.path("d/a/gone"))->key(), disk.path("d/a"));
    EXPECT_EQ(tree.ExpandToPath("/elsewhere")->key(), disk.path("d/a"));
    tree.Clear();
    EXPECT_EQ(tree.ExpandToPath(disk.path("d/a")), nullptr);
}

TEST_F(ExplorerTreeTest, HandsTheSelectionToTheBranchThatIsCollapsed)
{
    disk.add({"d/a/b/", ""});
    disk.add({"d/z/", ""});
    load();
    for (const char* const path : {"d/a/b", "d/z"}) {
        tree.ExpandToPath(disk.path(path));
        events.log.clear();
        tree.collapse(drive());
        EXPECT_EQ(tree.selected(), &drive());
        EXPECT_EQ(events.log, QStringList({"FolderCollapse " + disk.path("d/")}));
    }
}

TEST_F(ExplorerTreeTest, GoesOnWhenAHandlerTakesTheTreeAway)
{
    disk.add({"d/a/b/", ""});
    for (const QString event : {"Progress", "FolderExpand", "FolderCollapse"}) {
        load();
        events.handler = [&](const QString& line) {
            if (line.startsWith(event)) {
                tree.Clear();
            }
        };
        tree.ExpandToPath(disk.path("d/a"));
        if (tree.root() != nullptr) {
            tree.collapse(drive());
        }
        EXPECT_EQ(tree.root(), nullptr) << event.toStdString();
        EXPECT_EQ(tree.selected(), nullptr);
        events.handler = nullptr;
    }
}

TEST_F(ExplorerTreeTest, LeavesABranchUnreadOnDemandAndCollapsesItsParent)
{
    disk.add({"d/a/x/", ""});
    disk.add({"d/b/", ""});
    TreeNode& node = openDrive();
    tree.SkipNextExpand = true;
    tree.expand(child(node, 0));
    EXPECT_FALSE(tree.SkipNextExpand);
    EXPECT_FALSE(node.isExpanded);
    EXPECT_EQ(texts(node), QStringList({"b"}));
    EXPECT_EQ(events.log, QStringList({"FolderExpand " + disk.path("d/a"), "Change",
                                       "FolderCollapse " + disk.path("d/")}));
}

TEST_F(ExplorerTreeTest, HangsNodesUnderOthers)
{
    disk.add({"d/a/x/", ""});
    disk.add({"d/b/", ""});
    TreeNode& node = openDrive();
    TreeNode& a = child(node, 0);
    TreeNode& b = child(node, 1);
    EXPECT_EQ(tree.moveUnder(a, b), "b is parent of a");
    EXPECT_EQ(a.parent, &b);
    EXPECT_EQ(a.key(), disk.path("d/a"));
    EXPECT_EQ(b.row, 0);
    EXPECT_TRUE(disk.exists("d/a/x"));
    EXPECT_EQ(tree.moveUnder(b, a), "");
    EXPECT_EQ(tree.moveUnder(b, b), "");
    EXPECT_EQ(tree.moveUnder(*tree.root(), b), "");
    EXPECT_EQ(texts(node), QStringList({"b"}));
}

TEST_F(ExplorerTreeTest, NumbersNodesFromTheTopDown)
{
    disk.add({"d/a/x/", ""});
    openDrive();
    QStringList keys;
    for (int index = 1; index <= tree.nodeCount(); ++index) {
        keys.append(tree.nodeAt(index)->key());
    }
    EXPECT_EQ(keys, QStringList({"Root_WorkSpace", "Root_MyComputer", disk.path("d/"),
                                 disk.path("d/a"), disk.path("d/a") + u'\a'}));
    EXPECT_EQ(tree.nodeAt(0), nullptr);
    EXPECT_EQ(tree.nodeAt(6), nullptr);
}
