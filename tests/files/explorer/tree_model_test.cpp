#include "files/explorer/tree_model.h"

#include "files/explorer/fake_places.h"
#include "files/explorer/logged_events.h"
#include "support/temp_tree.h"

#include <QAbstractItemModelTester>
#include <QPersistentModelIndex>
#include <gtest/gtest.h>

using files::TreeModel;
using files::TreeNode;

namespace {

class TreeModelTest : public testing::Test {
protected:
    TreeModelTest()
    {
        places.driveList = {{disk.path("d"), platform::DriveType::Fixed, "Data", "", true}};
    }

    QModelIndex drive() const { return model.index(0, 0, model.index(0, 0, model.index(0, 0))); }

    support::TempTree disk = support::TempTree({{"d/a/x/", ""}, {"d/b\tc/", ""}});
    files::FakePlaces places;
    files::LoggedEvents events;
    files::ExplorerTree tree{places, events};
    TreeModel model{tree};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

} // namespace

TEST_F(TreeModelTest, FollowsTheNodesAsTheyComeAndGo)
{
    EXPECT_EQ(model.rowCount(), 0);
    tree.LoadTreeRoots("", {true, true, true, true});
    EXPECT_EQ(model.rowCount(), 1);
    EXPECT_EQ(drive().data(), QString("Data (" + disk.path("d") + ")"));
    EXPECT_EQ(model.rowCount(drive()), 1);
    tree.expand(*TreeModel::nodeOf(drive()));
    EXPECT_EQ(model.rowCount(drive()), 2);
    const QPersistentModelIndex last = model.index(1, 0, drive());
    EXPECT_EQ(last.data(), QStringLiteral("b\u2409c"));
    EXPECT_EQ(last.data(Qt::EditRole), "b\tc");
    tree.collapse(*TreeModel::nodeOf(drive()));
    EXPECT_EQ(last.row(), 0);
    tree.expand(*TreeModel::nodeOf(drive()));
    EXPECT_FALSE(last.isValid());
    EXPECT_EQ(model.rowCount(drive()), 2);
    tree.Clear();
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(TreeModelTest, FindsTheIndexOfANode)
{
    tree.LoadTreeRoots("", {true, true, true, true});
    const TreeNode* const node = tree.ExpandToPath(disk.path("d/a/x"));
    const QModelIndex index = model.indexOf(node);
    EXPECT_EQ(index.data(files::KeyRole), disk.path("d/a/x"));
    EXPECT_EQ(TreeModel::nodeOf(index), node);
    EXPECT_EQ(index.parent().parent(), drive());
    EXPECT_FALSE(model.indexOf(nullptr).isValid());
    EXPECT_EQ(TreeModel::nodeOf({}), nullptr);
}

TEST_F(TreeModelTest, FollowsANodeThatIsHungElsewhere)
{
    tree.LoadTreeRoots("", {true, true, true, true});
    TreeNode& a = *tree.ExpandToPath(disk.path("d/a"));
    tree.moveUnder(a, *tree.root());
    EXPECT_EQ(model.rowCount(drive()), 1);
    EXPECT_EQ(model.indexOf(&a).parent(), model.index(0, 0));
}

TEST_F(TreeModelTest, TakesCheckMarksWhereThereAreBoxes)
{
    tree.LoadTreeRoots("", {true, true, true, true});
    EXPECT_EQ(drive().data(Qt::CheckStateRole), QVariant());
    model.setCheckBoxes(true);
    EXPECT_TRUE(model.setData(drive(), Qt::Checked, Qt::CheckStateRole));
    EXPECT_EQ(drive().data(Qt::CheckStateRole), static_cast<int>(Qt::Checked));
    EXPECT_FALSE(model.setData(drive(), "name", Qt::ToolTipRole));
}
