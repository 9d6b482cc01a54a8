#include "platform/os/trash.h"

#include "platform/os/paths.h"
#include "support/ordinary_user.h"
#include "support/temp_tree.h"

#include <QRegularExpression>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

using support::TempTree;

namespace {

void expectRecord(const TempTree& tree, const std::string& name, const std::string& path)
{
    const QRegularExpression record("\\A\\[Trash Info\\]\nPath=(.*)\nDeletionDate="
                                    "\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\n\\z");
    const auto match = record.match(QString::fromStdString(tree.content(name)));
    ASSERT_TRUE(match.hasMatch()) << tree.content(name);
    EXPECT_EQ(match.captured(1).toStdString(), path);
}

} // namespace

TEST(Trash, TakesAFileAndRemembersWhereItWas)
{
    const TempTree tree({{"pics/a b.bmp", "pixels"}});
    EXPECT_TRUE(platform::trashFile(tree.path("pics/a b.bmp")));
    EXPECT_FALSE(tree.exists("pics/a b.bmp"));
    EXPECT_EQ(tree.content("data/Trash/files/a b.bmp"), "pixels");
    expectRecord(tree, "data/Trash/info/a b.bmp.trashinfo", tree.native("pics/a%20b.bmp"));
}

TEST(Trash, KeepsFilesOfTheSameNameApart)
{
    const TempTree tree({{"a", "1"}, {"other/a", "2"}, {"data/Trash/files/a.2", "unrecorded"}});
    EXPECT_TRUE(platform::trashFile(tree.path("a")));
    EXPECT_TRUE(platform::trashFile(tree.path("other/a")));
    EXPECT_EQ(tree.content("data/Trash/files/a"), "1");
    EXPECT_EQ(tree.content("data/Trash/files/a.2"), "unrecorded");
    EXPECT_EQ(tree.content("data/Trash/files/a.3"), "2");
    EXPECT_FALSE(tree.exists("data/Trash/info/a.2.trashinfo"));
    expectRecord(tree, "data/Trash/info/a.3.trashinfo", tree.native("other/a"));
}

TEST(Trash, TakesOddNames)
{
    const std::string longName(255, 'n');
    const TempTree tree({{"bad\xFF.bmp", "1"}, {"two\nlines", "2"}, {longName, "3"}});
    EXPECT_TRUE(platform::trashFile(tree.path("bad\xFF.bmp")));
    EXPECT_TRUE(platform::trashFile(tree.path("two\nlines")));
    EXPECT_TRUE(platform::trashFile(tree.path(longName)));
    EXPECT_EQ(tree.content("data/Trash/files/bad\xFF.bmp"), "1");
    expectRecord(tree, "data/Trash/info/bad\xFF.bmp.trashinfo", tree.native("bad%FF.bmp"));
    expectRecord(tree, "data/Trash/info/two\nlines.trashinfo", tree.native("two%0Alines"));
    const std::string shortened = longName.substr(0, 239);
    EXPECT_EQ(tree.content("data/Trash/files/" + shortened), "3");
    expectRecord(tree, "data/Trash/info/" + shortened + ".trashinfo", tree.native(longName));
}

TEST(Trash, TakesFoldersAndLinksThemselves)
{
    const TempTree tree({{"folder/a", "1"}, {"real", "2"}});
    std::filesystem::create_symlink(tree.native("real"), tree.native("link"));
    EXPECT_TRUE(platform::trashFile(tree.path("folder/")));
    EXPECT_TRUE(platform::trashFile(tree.path("link")));
    EXPECT_EQ(tree.content("data/Trash/files/folder/a"), "1");
    EXPECT_TRUE(std::filesystem::is_symlink(tree.native("data/Trash/files/link")));
    EXPECT_EQ(tree.content("real"), "2");
}

TEST(Trash, RefusesWhatIsntThere)
{
    const TempTree tree;
    EXPECT_FALSE(platform::trashFile(tree.path("none")));
    EXPECT_FALSE(platform::trashFile(""));
    EXPECT_FALSE(platform::trashFile("relative"));
    EXPECT_FALSE(platform::trashFile("/"));
    EXPECT_FALSE(tree.exists("data/Trash/info"));
}

TEST(Trash, LeavesTheFileWhereItCantBeMoved)
{
    const TempTree tree({{"a", "1"}, {"in-the-way", "a file"}});
    EXPECT_FALSE(platform::trashInto(tree.path("a"), tree.path("in-the-way"), ""));
    // Another file system: a rename can't reach it.
    EXPECT_FALSE(platform::trashInto("/proc/version", tree.path("t"), ""));
    EXPECT_EQ(tree.content("a"), "1");
    EXPECT_TRUE(std::filesystem::is_empty(tree.native("t/info")));
    EXPECT_FALSE(platform::trashFile("/proc/version"));
}

TEST(Trash, LeavesTheFileWhereTheTrashOrItsFolderIsReadOnly)
{
    const TempTree tree({{"open/a", "1"}, {"locked/b", "2"}, {"data/Trash/files/", ""}});
    for (const char* const folder : {".", "open", "data", "data/Trash", "data/Trash/files"}) {
        std::filesystem::permissions(tree.native(folder), std::filesystem::perms::all);
    }
    std::filesystem::permissions(tree.native("locked"), std::filesystem::perms(0555));
    {
        const support::OrdinaryUser user;
        EXPECT_FALSE(platform::trashFile(tree.path("locked/b")));
    }
    EXPECT_TRUE(std::filesystem::is_empty(tree.native("data/Trash/info")));
    std::filesystem::permissions(tree.native("data/Trash/files"), std::filesystem::perms(0555));
    {
        const support::OrdinaryUser user;
        EXPECT_FALSE(platform::trashFile(tree.path("open/a")));
    }
    EXPECT_TRUE(std::filesystem::is_empty(tree.native("data/Trash/info")));
    EXPECT_EQ(tree.content("open/a"), "1");
    EXPECT_EQ(tree.content("locked/b"), "2");
}

TEST(Trash, NamesFilesOfOtherFileSystemsByTheirTopFolder)
{
    const TempTree tree({{"stick/pics/a", "1"}});
    EXPECT_TRUE(platform::trashInto(tree.path("stick/pics/a"), tree.path("stick/.Trash-0"),
                                    tree.path("stick")));
    EXPECT_EQ(tree.content("stick/.Trash-0/files/a"), "1");
    expectRecord(tree, "stick/.Trash-0/info/a.trashinfo", "pics/a");
}

TEST(Trash, IsPrivate)
{
    const TempTree tree({{"a", "1"}});
    EXPECT_TRUE(platform::trashFile(tree.path("a")));
    for (const char* const folder : {"data/Trash", "data/Trash/files", "data/Trash/info"}) {
        struct stat facts = {};
        ::stat(tree.native(folder).c_str(), &facts);
        EXPECT_EQ(facts.st_mode & 0777U, 0700U) << folder;
    }
}

TEST(Trash, KnowsTheTopOfAFileSystem)
{
    EXPECT_EQ(platform::topFolderOf("/proc/self/status"), "/proc");
    EXPECT_EQ(platform::topFolderOf("/proc/version"), "/proc");
}
