#include "files/explorer/explorer_events.h"

#include "files/explorer/root_keys.h"

#include <QStringList>
#include <gtest/gtest.h>

using Types = std::vector<std::int16_t>;

TEST(ExplorerEvents, StandInTheirOrder)
{
    const QStringList expected = {
        "AfterRename",  "BeforeRename",    "Change",      "Click",       "ColumnClick",
        "DblClick",     "DriveNotReady",   "FolderCheck", "FolderClick", "FolderDblClick",
        "FolderExpand", "FolderCollapse",  "FileCheck",   "FileClick",   "FileDblClick",
        "KeyDown",      "KeyPress",        "KeyUp",       "MouseDown",   "MouseMove",
        "MouseUp",      "OLECompleteDrag", "OLEDragDrop", "OLEDragOver", "OLEGiveFeedback",
        "OLESetData",   "OLEStartDrag",    "Progress",    "RootClick",   "RootDblClick",
        "RootCheck",    "RootExpand",      "RootCollapse"};
    QStringList names;
    for (const files::EventRow& row : files::eventRows()) {
        names.append(row.name);
    }
    EXPECT_EQ(names, expected);
    EXPECT_EQ(names.size(), 33);
}

TEST(RootKeys, AreToldByTheirBeginningAnywhere)
{
    EXPECT_TRUE(files::isRootKey("Root_MyComputer"));
    EXPECT_TRUE(files::isRootKey("/home/Root_mine"));
    EXPECT_FALSE(files::isRootKey("/home/root_mine"));
    EXPECT_FALSE(files::isRootKey(""));
}

TEST(RootKeys, NameRootsByTestsThatDontExcludeEachOther)
{
    EXPECT_EQ(files::rootTypesOf("Root_MyComputer"), Types({1}));
    EXPECT_EQ(files::rootTypesOf("Root_WorkSpace"), Types({0}));
    EXPECT_EQ(files::rootTypesOf("Root_ControlPanel"), Types({2}));
    EXPECT_EQ(files::rootTypesOf("/Root_/ControlPanel/COMPUTER/workspace"), Types({1, 0, 2}));
    EXPECT_EQ(files::rootTypesOf("Root_none"), Types());
}

TEST(RootKeys, HaveOneNumberForADoubleClick)
{
    EXPECT_EQ(files::clickedRootType("Root_MyComputer"), 1);
    EXPECT_EQ(files::clickedRootType("Root_ControlPanel"), 2);
    EXPECT_EQ(files::clickedRootType("/run/user/1/gvfs"), 0);
    EXPECT_EQ(files::clickedRootType("MyComputer ControlPanel"), 1);
}
