#include "platform/os/files.h"

#include "support/temp_tree.h"
#include "support/unruly_disk.h"

#include <QFile>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using support::TempTree;

namespace {

unsigned permissionsOf(const TempTree& tree, const std::string& name)
{
    struct stat facts = {};
    EXPECT_EQ(::stat(tree.native(name).c_str(), &facts), 0);
    return facts.st_mode & 07777U;
}

std::size_t entriesIn(const TempTree& tree, const std::string& folder)
{
    const std::filesystem::directory_iterator first(tree.native(folder));
    return static_cast<std::size_t>(std::distance(first, std::filesystem::directory_iterator()));
}

} // namespace

TEST(Files, ReadAndWriteUnderEveryNameThatTheFileSystemAllows)
{
    const TempTree tree({{"pics/", ""}});
    const std::string names[] = {
        std::string(255, 'n'), "two\nlines",       "a \"quote\" 'b'", "a#b;c",
        "bad\xFF\xC3name",     "\xEF\xBB\xBFmark", " blanks ",        "50%.bmp"};
    for (const std::string& name : names) {
        const QString path = tree.path("pics/" + name);
        ASSERT_TRUE(platform::writeFileWhole(path, "bytes")) << name;
        EXPECT_TRUE(std::filesystem::exists(tree.native("pics/" + name))) << name;
        EXPECT_EQ(platform::readFile(path), QByteArray("bytes")) << name;
        const auto file = platform::openForReading(path);
        ASSERT_TRUE(file) << name;
        EXPECT_EQ(file->readAll(), "bytes") << name;
        EXPECT_EQ(platform::fileSize(path), 5) << name;
        EXPECT_TRUE(platform::copyFile(path, tree.path("copy"), platform::Flush::No)) << name;
        EXPECT_TRUE(platform::renameFile(path, tree.path("other"))) << name;
        EXPECT_TRUE(platform::removeFile(tree.path("other"))) << name;
    }
}

TEST(Files, NeverWaitForAPipe)
{
    const TempTree tree;
    ASSERT_EQ(::mkfifo(tree.native("pipe").c_str(), 0600), 0);
    const QString pipe = tree.path("pipe");
    EXPECT_FALSE(platform::openForReading(pipe));
    EXPECT_FALSE(platform::readFile(pipe));
    EXPECT_FALSE(platform::writeFileWhole(pipe, "x"));
    EXPECT_FALSE(platform::appendToFile(pipe, "x"));
    EXPECT_FALSE(platform::copyFile(pipe, tree.path("copy"), platform::Flush::No));
    EXPECT_FALSE(platform::isRegularFile(pipe));
    EXPECT_FALSE(platform::fileSize(pipe));
}

TEST(Files, TakeFoldersAndDevicesForFailures)
{
    const TempTree tree({{"folder/", ""}});
    EXPECT_FALSE(platform::readFile(tree.path("folder")));
    EXPECT_FALSE(platform::openForReading("/dev/zero"));
    EXPECT_FALSE(platform::writeFileWhole(tree.path("folder"), "x"));
    EXPECT_FALSE(platform::removeFile(tree.path("folder")));
    EXPECT_FALSE(platform::readFile(""));
}

TEST(Files, RefuseAPathThatHoldsATerminator)
{
    const TempTree tree({{"a", "bytes"}});
    const QString path = tree.path("a") + QChar(u'\0') + "b";
    EXPECT_FALSE(platform::readFile(path));
    EXPECT_FALSE(platform::writeFileWhole(path, "x"));
    EXPECT_FALSE(platform::removeFile(path));
    EXPECT_EQ(tree.content("a"), "bytes");
}

TEST(Files, AreReadUpToTheBoundOnly)
{
    const TempTree tree({{"five", "12345"}, {"none", ""}});
    EXPECT_EQ(platform::readFile(tree.path("five"), 5), QByteArray("12345"));
    EXPECT_FALSE(platform::readFile(tree.path("five"), 4));
    EXPECT_EQ(platform::readFile(tree.path("none")), QByteArray(""));
}

TEST(Files, AreReadWhereTheSystemTellsNoSize)
{
    EXPECT_GT(platform::readFile("/proc/self/status")->size(), 0);
}

TEST(WholeWrite, LeavesNoFileBesideItsTarget)
{
    const TempTree tree({{"pics/a", "old"}});
    EXPECT_TRUE(platform::writeFileWhole(tree.path("pics/a"), "new", platform::Flush::ToDisk));
    EXPECT_EQ(tree.content("pics/a"), "new");
    EXPECT_EQ(entriesIn(tree, "pics"), 1U);
}

TEST(WholeWrite, KeepsThePermissionsOfItsTarget)
{
    const TempTree tree({{"a", "old"}});
    ::chmod(tree.native("a").c_str(), 0640);
    EXPECT_TRUE(platform::writeFileWhole(tree.path("a"), "new"));
    EXPECT_EQ(permissionsOf(tree, "a"), 0640U);
}

TEST(WholeWrite, GivesANewFileTheUsersDefaultPermissions)
{
    const TempTree tree;
    const mode_t before = ::umask(027);
    EXPECT_TRUE(platform::writeFileWhole(tree.path("a"), "new"));
    ::umask(before);
    EXPECT_EQ(permissionsOf(tree, "a"), 0640U);
}

TEST(WholeWrite, WritesToTheFileThatALinkLeadsTo)
{
    const TempTree tree({{"real", "old"}});
    std::filesystem::create_symlink(tree.native("real"), tree.native("link"));
    EXPECT_TRUE(platform::writeFileWhole(tree.path("link"), "new"));
    EXPECT_TRUE(std::filesystem::is_symlink(tree.native("link")));
    EXPECT_EQ(tree.content("real"), "new");
}

TEST(WholeWrite, MakesTheFileThatALinkLeadsTo)
{
    const TempTree tree({{"links/", ""}, {"files/", ""}});
    std::filesystem::create_symlink("../links/second", tree.native("links/first"));
    std::filesystem::create_symlink("../files/new", tree.native("links/second"));
    EXPECT_TRUE(platform::writeFileWhole(tree.path("links/first"), "new"));
    EXPECT_TRUE(std::filesystem::is_symlink(tree.native("links/first")));
    EXPECT_TRUE(std::filesystem::is_symlink(tree.native("links/second")));
    EXPECT_EQ(tree.content("files/new"), "new");
    EXPECT_EQ(entriesIn(tree, "files"), 1U);
}

TEST(WholeWrite, LeavesLinksThatLeadToNoFile)
{
    const TempTree tree({{"links/", ""}});
    std::filesystem::create_symlink("../none/new", tree.native("links/nowhere"));
    std::filesystem::create_symlink("circle", tree.native("links/circle"));
    for (const char* const name : {"links/nowhere", "links/circle"}) {
        EXPECT_FALSE(platform::writeFileWhole(tree.path(name), "new")) << name;
        EXPECT_TRUE(std::filesystem::is_symlink(tree.native(name))) << name;
    }
    EXPECT_EQ(entriesIn(tree, "links"), 2U);
}

TEST(WholeWrite, FailsWhereThereIsNoFolder)
{
    const TempTree tree({{"file", "x"}});
    EXPECT_FALSE(platform::writeFileWhole(tree.path("none/a"), "x"));
    EXPECT_FALSE(platform::writeFileWhole(tree.path("file/a"), "x"));
}

TEST(Append, MakesTheFileAndThenGrowsIt)
{
    const TempTree tree;
    EXPECT_TRUE(platform::appendToFile(tree.path("list"), "one;"));
    EXPECT_TRUE(platform::appendToFile(tree.path("list"), "two;"));
    EXPECT_EQ(tree.content("list"), "one;two;");
}

TEST(Copy, ReplacesTheTarget)
{
    const TempTree tree({{"a", "new"}, {"b", "old and longer"}});
    EXPECT_TRUE(platform::copyFile(tree.path("a"), tree.path("b"), platform::Flush::No));
    EXPECT_EQ(tree.content("b"), "new");
    EXPECT_EQ(tree.content("a"), "new");
}

TEST(Copy, KeepsPermissionsAndTime)
{
    const TempTree tree({{"a", "new"}});
    ::chmod(tree.native("a").c_str(), 0604);
    const timespec times[] = {{1000000, 0}, {2000000, 0}};
    ::utimensat(AT_FDCWD, tree.native("a").c_str(), times, 0);
    EXPECT_TRUE(platform::copyFile(tree.path("a"), tree.path("b"), platform::Flush::No));
    struct stat facts = {};
    ::stat(tree.native("b").c_str(), &facts);
    EXPECT_EQ(facts.st_mtim.tv_sec, 2000000);
    EXPECT_EQ(facts.st_mode & 0777U, 0604U);
}

TEST(Copy, OntoItselfFailsAndKeepsTheBytes)
{
    const TempTree tree({{"pics/a", "bytes"}});
    std::filesystem::create_symlink(tree.native("pics"), tree.native("alias"));
    std::filesystem::create_symlink(tree.native("pics/a"), tree.native("pics/link"));
    std::filesystem::create_hard_link(tree.native("pics/a"), tree.native("pics/hard"));
    for (const char* const other :
         {"pics/a", "pics/../pics/a", "alias/a", "pics/link", "pics/hard"}) {
        EXPECT_FALSE(platform::copyFile(tree.path("pics/a"), tree.path(other), platform::Flush::No))
            << other;
        EXPECT_EQ(tree.content("pics/a"), "bytes") << other;
    }
}

TEST(Copy, OfAMissingFileLeavesTheTarget)
{
    const TempTree tree({{"b", "old"}, {"folder/", ""}});
    EXPECT_FALSE(platform::copyFile(tree.path("none"), tree.path("b"), platform::Flush::No));
    EXPECT_FALSE(platform::copyFile(tree.path("b"), tree.path("folder"), platform::Flush::No));
    EXPECT_EQ(tree.content("b"), "old");
}

TEST(Rename, RefusesANameThatIsTaken)
{
    const TempTree tree({{"a", "1"}, {"b", "2"}});
    EXPECT_FALSE(platform::renameFile(tree.path("a"), tree.path("b")));
    EXPECT_FALSE(platform::renameFile(tree.path("a"), tree.path("a")));
    EXPECT_TRUE(platform::renameFile(tree.path("a"), tree.path("A")));
    EXPECT_EQ(tree.content("A"), "1");
    EXPECT_EQ(tree.content("b"), "2");
}

TEST(Rename, SparesATakenNameOnAFileSystemThatKnowsNoSuchRename)
{
    const TempTree tree({{"a", "1"}, {"b", "2"}, {"folder/inside", "3"}});
    support::UnrulyDisk disk;
    disk.hasSparingRename = false;
    EXPECT_FALSE(platform::renameFile(tree.path("a"), tree.path("b")));
    EXPECT_FALSE(platform::renameFile(tree.path("a"), tree.path("a")));
    EXPECT_FALSE(platform::renameFile(tree.path("folder"), tree.path("b")));
    EXPECT_FALSE(platform::renameFile(tree.path("none"), tree.path("c")));
    EXPECT_EQ(tree.content("a"), "1");
    EXPECT_EQ(tree.content("b"), "2");
    EXPECT_TRUE(platform::renameFile(tree.path("a"), tree.path("A")));
    EXPECT_TRUE(platform::renameFile(tree.path("folder"), tree.path("other")));
    EXPECT_FALSE(tree.exists("a"));
    EXPECT_EQ(tree.content("A"), "1");
    EXPECT_EQ(tree.content("other/inside"), "3");
}

TEST(Remove, TakesALinkAndNotItsFile)
{
    const TempTree tree({{"a", "1"}});
    std::filesystem::create_symlink(tree.native("a"), tree.native("link"));
    EXPECT_TRUE(platform::removeFile(tree.path("link")));
    EXPECT_EQ(tree.content("a"), "1");
}

TEST(RemoveFilesIn, LeavesSubfoldersAlone)
{
    const TempTree tree({{"t/a", "1"}, {"t/.hidden", "2"}, {"t/bad\xFF", "3"}, {"t/sub/b", "4"}});
    std::filesystem::create_symlink(tree.native("t/sub"), tree.native("t/link"));
    platform::removeFilesIn(tree.path("t"));
    EXPECT_EQ(entriesIn(tree, "t"), 1U);
    EXPECT_EQ(tree.content("t/sub/b"), "4");
    platform::removeFilesIn(tree.path("none"));
}

TEST(MakeFolder, MakesItsParents)
{
    const TempTree tree({{"file", "x"}});
    EXPECT_TRUE(platform::makeFolder(tree.path("a/b/c\xFF")));
    EXPECT_TRUE(platform::makeFolder(tree.path("a/b/c\xFF")));
    EXPECT_TRUE(platform::isFolder(tree.path("a/b/c\xFF")));
    EXPECT_FALSE(platform::makeFolder(tree.path("file")));
    EXPECT_FALSE(platform::makeFolder(tree.path("file/a")));
}
