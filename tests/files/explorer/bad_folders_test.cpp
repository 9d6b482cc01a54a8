#include "files/explorer/ctl_explorer.h"
#include "files/explorer/fake_places.h"
#include "platform/os/paths.h"
#include "support/fake_dialogs.h"
#include "support/ordinary_user.h"
#include "support/temp_tree.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <vector>

using support::FakeDialogs;
using support::OrdinaryUser;
using support::TempTree;
using P = files::ExplorerProperties;

namespace {

// Names that a file system takes and a window has to live with.
const std::vector<std::string> kUnruly = {"line\nbreak", "tab\there",           "bad\xFF\xFE",
                                          " blank ",     std::string(255, 'n'), "..."};

// The explorer over the folder "d" of a temporary tree, which is its one drive.
class BadFolders : public testing::Test {
protected:
    void make(int style)
    {
        places.driveList = {{disk.path("d"), platform::DriveType::Removable, "", "", true}};
        core::PropertyBag bag;
        bag.write("Style", style, 0);
        bag.write("View", files::kReportView, 0);
        bag.write("Path", disk.path("d"), "");
        made = std::make_unique<ctlExplorer>(nullptr, bag, places);
        made->resize(300, 400);
        made->show();
    }

    QAbstractItemView& view(const char* name) const
    {
        return *made->findChild<QAbstractItemView*>(name);
    }
    QModelIndex drive() const
    {
        const QAbstractItemModel& model = *view("TreeView1").model();
        return model.index(0, 0, model.index(0, 0, model.index(0, 0)));
    }
    static QStringList keysBelow(const QModelIndex& node)
    {
        QStringList keys;
        for (int row = 0; row < node.model()->rowCount(node); ++row) {
            keys.append(node.model()->index(row, 0, node).data(files::KeyRole).toString());
        }
        return keys;
    }
    // Lets the view show what there is.
    static void paint() { QCoreApplication::processEvents(); }

    TempTree disk{{"d/", ""}};
    FakeDialogs dialogs;
    files::FakePlaces places;
    std::unique_ptr<ctlExplorer> made;
};

} // namespace

TEST_F(BadFolders, AreListedWithTheirNamesAsTheyAre)
{
    for (const std::string& name : kUnruly) {
        disk.add({"d/" + name + "/inside", ""});
    }
    make(1);
    paint();
    EXPECT_EQ(made->FolderCount(), 5);
    EXPECT_EQ(made->FileIndex(disk.path("d/...")), 0);
    for (const std::string& name : kUnruly) {
        made->setPath(disk.path("d/" + name));
        paint();
        EXPECT_EQ(made->FileIndex(disk.path("d/" + name + "/inside")), 1) << name;
    }
}

TEST_F(BadFolders, AreWalkedToByTheirNames)
{
    for (const std::string& name : kUnruly) {
        disk.add({"d/" + name + "/inside/", ""});
    }
    make(0);
    for (const std::string& name : kUnruly) {
        made->setPath(disk.path("d/" + name + "/inside"));
        paint();
        const bool isHidden = name[0] == '.';
        EXPECT_EQ(made->path(), disk.path(isHidden ? "d/" : "d/" + name + "/inside")) << name;
    }
    EXPECT_EQ(keysBelow(drive()).size(), 5);
}

// Forty links are as far as the system goes.
TEST_F(BadFolders, EndALoopOfLinksWhereTheSystemDoes)
{
    disk.add({"d/a/file", ""});
    std::filesystem::create_symlink("..", disk.native("d/a/up"));
    std::filesystem::create_symlink("self", disk.native("d/self"));
    QString path = disk.path("d/a");
    make(1);
    int steps = 0;
    for (; made->FileCount() > 0 && steps < 100; ++steps) {
        path += QStringLiteral("/up/a");
        made->setPath(path);
    }
    EXPECT_GE(steps, 40);
    EXPECT_LT(steps, 100);
    made->setPath(disk.path("d/self"));
    EXPECT_EQ(made->FileCount(), 0);
    made->set(&P::Style, 0);
    made->setPath(path);
    EXPECT_TRUE(path.startsWith(made->path()));
    EXPECT_GT(made->path().count(QStringLiteral("/up")), 30);
    EXPECT_TRUE(dialogs.boxes.empty());
}

// Where names may be read but not looked at, the tree has those that are folders by the listing.
TEST_F(BadFolders, AreEmptyWithoutABoxWhereTheUserMayNotLook)
{
    disk.add({"d/closed/a/", ""});
    disk.add({"d/blind/a/", ""});
    make(0);
    made->setPath(disk.path("d/"));
    ::chmod(disk.native("").c_str(), 0755);
    ::chmod(disk.native("d/closed").c_str(), 0311);
    ::chmod(disk.native("d/blind").c_str(), 0644);
    const OrdinaryUser user;
    for (const char* const name : {"d/closed", "d/blind"}) {
        made->set(&P::Style, 0);
        made->setPath(disk.path(name));
        EXPECT_EQ(made->path(), disk.path(name));
        EXPECT_EQ(made->SubFolderCount(), name == std::string("d/blind") ? 1 : 0);
        made->set(&P::Style, 1);
        EXPECT_EQ(made->FileCount(), 0);
        paint();
    }
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(BadFolders, MayVanishWhileTheyAreRead)
{
    for (const int style : {0, 1}) {
        for (const char* const name : {"d/a/x/", "d/b/", "d/1", "d/2"}) {
            disk.add({name, ""});
        }
        make(style);
        const auto vanish = [this](int percent) {
            if (percent > 0) {
                disk.remove("d");
            }
        };
        QObject::connect(made.get(), &ctlExplorer::Progress, made.get(), vanish);
        made->setPath(disk.path("d/"));
        paint();
        EXPECT_EQ(made->FileCount(), 0);
        made->setPath(disk.path("d/a"));
        paint();
        EXPECT_EQ(made->SubFolderCount(), 0);
    }
    EXPECT_TRUE(dialogs.boxes.empty());
}

// As a stick that was pulled out, and plugged in again.
TEST_F(BadFolders, MayBeADriveWithoutItsMedium)
{
    disk.remove("d");
    make(0);
    made->setPath(disk.path("d/"));
    EXPECT_EQ(keysBelow(drive()), QStringList());
    made->set(&P::Style, 1);
    EXPECT_EQ(made->FileCount(), 0);
    made->ListRootFolder(files::RootType::MyComputer);
    EXPECT_EQ(made->FileIndex(disk.path("d/")), 1);
    disk.add({"d/a/x", ""});
    made->setPath(disk.path("d"));
    EXPECT_EQ(made->FileCount(), 1);
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(BadFolders, AreScrolledIntoSightAmongMany)
{
    for (int i = 100; i < 300; ++i) {
        disk.add({"d/" + std::to_string(i) + "/", ""});
    }
    make(0);
    made->setPath(disk.path("d/250"));
    paint();
    const QAbstractItemView& tree = view("TreeView1");
    EXPECT_EQ(tree.currentIndex().data(files::KeyRole), disk.path("d/250"));
    EXPECT_TRUE(tree.viewport()->rect().contains(tree.visualRect(tree.currentIndex()).center()));
}
