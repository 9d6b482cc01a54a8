#include "platform/os/file_transfer.h"

#include "platform/os/replacement_file.h"
#include "support/full_disk.h"
#include "support/ordinary_user.h"
#include "support/temp_tree.h"
#include "support/unruly_disk.h"

#include <array>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

using platform::copyTo;
using platform::moveTo;
using support::OrdinaryUser;
using support::TempTree;
using support::UnrulyDisk;
namespace fs = std::filesystem;

namespace {

const std::string kLong(std::size_t(3) << 20, 'n'); // takes three steps
constexpr const char* kOld = "the old bytes";

std::vector<std::string> namesIn(const TempTree& tree, const std::string& folder)
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(tree.native(folder))) {
        names.push_back(entry.path().filename());
    }
    std::sort(names.begin(), names.end());
    return names;
}

using Names = std::vector<std::string>;

struct stat factsOf(const std::string& path)
{
    struct stat facts = {};
    EXPECT_EQ(::lstat(path.c_str(), &facts), 0) << path;
    return facts;
}

// The ways in which a file gets from one folder to the other.
struct Way {
    const char* name;
    bool (*run)(const QString& from, const QString& to, const platform::TransferProgress& progress);
    bool moves;
    bool crossesDisks;
    bool copiesRanges = true;
    bool clones = false;
};

std::ostream& operator<<(std::ostream& stream, const Way& way)
{
    return stream << way.name;
}

constexpr Way kCopyByBlocks{"CopyByBlocks", copyTo, false, false, false};
constexpr Way kMoveAcross{"MoveAcross", moveTo, true, true};

class Transfer : public testing::TestWithParam<Way> {
protected:
    Transfer()
    {
        disk.copiesRanges = GetParam().copiesRanges;
        disk.clones = GetParam().clones;
        if (GetParam().crossesDisks) {
            disk.otherDisk = tree.native("there");
        }
    }

    bool run(const std::string& from, const std::string& to,
             const platform::TransferProgress& progress = {}) const
    {
        return GetParam().run(tree.path(from), tree.path(to), progress);
    }

    // Nothing happened: the source and what stood at the target are there, and nothing else.
    void expectNothingDone(const std::string& source, const std::string& target) const
    {
        EXPECT_EQ(tree.content("here/a"), source);
        EXPECT_EQ(tree.content("there/a"), target);
        EXPECT_EQ(namesIn(tree, "here"), Names{"a"});
        EXPECT_EQ(namesIn(tree, "there"), target.empty() ? Names{} : Names{"a"});
    }

    TempTree tree{{"here/", ""}, {"there/", ""}};
    UnrulyDisk disk;
};

const auto wayName = [](const testing::TestParamInfo<Way>& row) {
    return std::string(row.param.name);
};

INSTANTIATE_TEST_SUITE_P(Ways, Transfer,
                         testing::Values(Way{"Copy", copyTo, false, false}, kCopyByBlocks,
                                         Way{"CopyByClone", copyTo, false, false, true, true},
                                         Way{"Move", moveTo, true, false}, kMoveAcross,
                                         Way{"MoveAcrossByBlocks", moveTo, true, true, false}),
                         wayName);

// Those that take their time.
class ByteTransfer : public Transfer {};

INSTANTIATE_TEST_SUITE_P(Ways, ByteTransfer,
                         testing::Values(Way{"Copy", copyTo, false, false}, kCopyByBlocks,
                                         kMoveAcross),
                         wayName);

} // namespace

TEST_P(Transfer, BringsAllBytesToAFreeName)
{
    tree.add({"here/a", kLong});
    EXPECT_TRUE(run("here/a", "there/a"));
    EXPECT_EQ(tree.content("there/a"), kLong);
    EXPECT_EQ(tree.content("here/a"), GetParam().moves ? "" : kLong);
    EXPECT_EQ(tree.exists("here/a"), !GetParam().moves);
    EXPECT_EQ(namesIn(tree, "there"), Names{"a"});
}

TEST_P(Transfer, ReplacesWhatStandsThere)
{
    for (const std::string& content : {std::string(), std::string("short"), kLong}) {
        tree.add({"here/a", content});
        tree.add({"there/a", kOld});
        EXPECT_TRUE(run("here/a", "there/a"));
        EXPECT_EQ(tree.content("there/a"), content);
        EXPECT_EQ(namesIn(tree, "there"), Names{"a"});
    }
}

TEST_P(Transfer, KeepsTimesPermissionsAndAttributes)
{
    tree.add({"here/a", kLong});
    const std::string source = tree.native("here/a");
    const timespec times[] = {{1000000, 111}, {2000000, 222}};
    ASSERT_EQ(::setxattr(source.c_str(), "user.note", "sea", 3, 0), 0);
    for (const mode_t mode : {0604U, 0640U, 0400U, 0755U}) {
        tree.add({"here/b", kLong});
        ASSERT_EQ(::setxattr(tree.native("here/b").c_str(), "user.note", "sea", 3, 0), 0);
        ::chmod(tree.native("here/b").c_str(), mode);
        ::utimensat(AT_FDCWD, tree.native("here/b").c_str(), times, 0);
        tree.add({"there/b", kOld}); // readable for everybody
        ASSERT_TRUE(run("here/b", "there/b"));
        const struct stat facts = factsOf(tree.native("there/b"));
        EXPECT_EQ(facts.st_mode & 07777U, mode);
        EXPECT_EQ(facts.st_mtim.tv_sec, 2000000);
        EXPECT_EQ(facts.st_mtim.tv_nsec, 222);
        std::array<char, 8> note{};
        EXPECT_EQ(::getxattr(tree.native("there/b").c_str(), "user.note", note.data(), note.size()),
                  3);
        tree.remove("here/b");
        tree.remove("there/b");
    }
}

TEST_P(Transfer, OntoItselfFailsAndKeepsTheFile)
{
    tree.add({"here/a", kLong});
    fs::create_directory_symlink(tree.native("here"), tree.native("HERE"));
    fs::create_directory_symlink(tree.native("here"), tree.native("alias"));
    fs::create_symlink(tree.native("here/a"), tree.native("there/link"));
    fs::create_symlink("link", tree.native("there/second"));
    fs::create_hard_link(tree.native("here/a"), tree.native("there/hard"));
    for (const char* const other : {"here/a", "here/../here/a", "HERE/a", "alias/a", "there/link",
                                    "there/second", "there/hard"}) {
        EXPECT_FALSE(run("here/a", other)) << other;
        EXPECT_EQ(tree.content("here/a"), kLong) << other;
        EXPECT_EQ(tree.content(other), kLong) << other;
    }
    EXPECT_FALSE(run("there/link", "here/a"));
    EXPECT_TRUE(fs::is_symlink(tree.native("there/link")));
    EXPECT_EQ(tree.content("here/a"), kLong);
}

TEST_P(Transfer, TellsNamesApartThatDifferInCaseWhereTheFileSystemDoes)
{
    tree.add({"here/a", "small"});
    tree.add({"here/A", "large"});
    EXPECT_TRUE(run("here/a", "here/A"));
    EXPECT_EQ(tree.content("here/A"), "small");
}

TEST_P(Transfer, FailsWhereTheTargetIsNoPlaceForAFile)
{
    tree.add({"here/a", kLong});
    tree.add({"there/a", kOld});
    tree.add({"folder/a/b", "inside"});
    fs::create_symlink("circle", tree.native("circle"));
    ASSERT_EQ(::mkfifo(tree.native("pipe").c_str(), 0600), 0);
    for (const char* const target : {"there/a/a", "none/a", "folder/a", "circle", "pipe"}) {
        EXPECT_FALSE(run("here/a", target)) << target;
    }
    EXPECT_FALSE(GetParam().run(tree.path("here/a"), QString(), {}));
    EXPECT_FALSE(GetParam().run(tree.path("here/a"), tree.path("b") + QChar(u'\0'), {}));
    EXPECT_EQ(tree.content("folder/a/b"), "inside");
    EXPECT_TRUE(fs::is_fifo(tree.native("pipe")));
    expectNothingDone(kLong, kOld);
}

TEST_P(Transfer, FailsForWhatIsNoRegularFile)
{
    tree.add({"there/a", kOld});
    ASSERT_EQ(::mkfifo(tree.native("pipe").c_str(), 0600), 0);
    for (const char* const source : {"here", "none", "pipe"}) {
        EXPECT_FALSE(run(source, "there/a")) << source;
        EXPECT_FALSE(run(source, "there/b")) << source;
    }
    EXPECT_TRUE(tree.exists("pipe"));
    EXPECT_EQ(namesIn(tree, "there"), Names{"a"});
    EXPECT_EQ(tree.content("there/a"), kOld);
}

TEST_P(Transfer, FailsWhereTheFolderOrTheTargetIsReadOnly)
{
    tree.add({"here/a", kLong});
    tree.add({"there/a", kOld});
    for (const char* const folder : {".", "app", "here"}) {
        fs::permissions(tree.native(folder), fs::perms::all);
    }
    fs::permissions(tree.native("here/a"), fs::perms(0666));
    fs::permissions(tree.native("there/a"), fs::perms(0666));
    fs::permissions(tree.native("there"), fs::perms(0555));
    {
        const OrdinaryUser user;
        EXPECT_FALSE(run("here/a", "there/a"));
        EXPECT_FALSE(run("here/a", "there/b"));
    }
    expectNothingDone(kLong, kOld);
    fs::permissions(tree.native("there"), fs::perms::all);
    fs::permissions(tree.native("there/a"), fs::perms(0444));
    {
        const OrdinaryUser user;
        EXPECT_FALSE(run("here/a", "there/a"));
    }
    expectNothingDone(kLong, kOld);
}

TEST_P(Transfer, ReachesTheFileThatALinkAtTheTargetLeadsTo)
{
    tree.add({"here/a", kLong});
    tree.add({"there/real", kOld});
    fs::create_symlink("real", tree.native("there/a"));
    EXPECT_TRUE(run("here/a", "there/a"));
    EXPECT_TRUE(fs::is_symlink(tree.native("there/a")));
    EXPECT_EQ(tree.content("there/real"), kLong);
}

TEST_P(Transfer, BringsTheFileOfALink)
{
    tree.add({"real", kLong});
    fs::create_symlink("../real", tree.native("here/a"));
    EXPECT_TRUE(run("here/a", "there/a"));
    EXPECT_FALSE(fs::is_symlink(tree.native("there/a")));
    EXPECT_EQ(tree.content("there/a"), kLong);
    EXPECT_EQ(tree.content("real"), kLong);
    EXPECT_EQ(tree.exists("here/a"), !GetParam().moves);
}

TEST_P(Transfer, WorksUnderEveryNameThatTheFileSystemAllows)
{
    for (const bool hasUnnamedFiles : {true, false}) {
        disk.hasUnnamedFiles = hasUnnamedFiles;
        for (const std::string& name :
             {std::string(255, 'n'), std::string("two\nlines"), std::string("bad\xFF\xC3name"),
              std::string(" blanks "), std::string(".hidden"), std::string("a#b;c")}) {
            tree.add({"here/" + name, "bytes"});
            EXPECT_TRUE(run("here/" + name, "there/" + name)) << name;
            EXPECT_EQ(tree.content("there/" + name), "bytes") << name;
            EXPECT_EQ(tree.exists("here/" + name), !GetParam().moves) << name;
            tree.add({"here/" + name, "again"});
            EXPECT_TRUE(run("here/" + name, "there/" + name)) << name;
            EXPECT_EQ(namesIn(tree, "there"), Names{name});
            tree.remove("there/" + name);
        }
    }
}

// ---- what goes wrong underway ----

TEST_P(ByteTransfer, LeavesTheOldFileOnAFullDisk)
{
    for (const char* const old : {kOld, ""}) {
        for (const bool hasUnnamedFiles : {true, false}) {
            disk.hasUnnamedFiles = hasUnnamedFiles;
            tree.add({"here/a", kLong});
            tree.remove("there/a");
            if (*old != '\0') {
                tree.add({"there/a", old});
            }
            {
                const support::FullDisk full(kLong.size() / 2);
                EXPECT_FALSE(run("here/a", "there/a"));
            }
            expectNothingDone(kLong, old);
            disk.writeError = ENOSPC;
            disk.room = kLong.size() - 1;
            EXPECT_FALSE(run("here/a", "there/a"));
            disk.writeError = 0;
            expectNothingDone(kLong, old);
        }
    }
}

TEST_P(ByteTransfer, LeavesTheOldFileOnADiskThatFailsLate)
{
    tree.add({"here/a", kLong});
    tree.add({"there/a", kOld});
    for (int UnrulyDisk::*const call : {&UnrulyDisk::syncError, &UnrulyDisk::closeError}) {
        disk.*call = EIO;
        EXPECT_FALSE(run("here/a", "there/a"));
        disk.*call = 0;
        expectNothingDone(kLong, kOld);
    }
}

TEST_P(ByteTransfer, LeavesTheOldFileWhenTheSourceShrinks)
{
    for (const bool clones : {false, true}) {
        disk.clones = clones;
        for (const std::uintmax_t left : {kLong.size() / 2, kLong.size() - 1, std::size_t(0)}) {
            tree.add({"here/a", kLong});
            tree.add({"there/a", kOld});
            EXPECT_FALSE(run("here/a", "there/a", [&](qint64 done, qint64 /*total*/) {
                if (done == 0) {
                    fs::resize_file(tree.native("here/a"), left);
                }
                return true;
            }));
            expectNothingDone(kLong.substr(0, left), kOld);
        }
    }
}

TEST_P(ByteTransfer, LeavesTheOldFileWhenItIsCancelled)
{
    tree.add({"here/a", kLong});
    tree.add({"there/a", kOld});
    for (const qint64 last : {qint64(0), qint64(1) << 20, qint64(kLong.size())}) {
        EXPECT_FALSE(run("here/a", "there/a",
                         [last](qint64 done, qint64 /*total*/) { return done < last; }));
        expectNothingDone(kLong, kOld);
    }
}

TEST_P(ByteTransfer, TellsHowFarItHasCome)
{
    tree.add({"here/a", kLong});
    std::vector<qint64> told;
    EXPECT_TRUE(run("here/a", "there/a", [&told](qint64 done, qint64 total) {
        EXPECT_EQ(total, qint64(kLong.size()));
        told.push_back(done);
        return true;
    }));
    EXPECT_EQ(told, (std::vector<qint64>{0, 1 << 20, 2 << 20, 3 << 20}));
}

TEST_P(ByteTransfer, LetsAnotherOneRunMeanwhile)
{
    tree.add({"here/a", kLong});
    tree.add({"here/b", "other"});
    disk.hasUnnamedFiles = false;
    EXPECT_TRUE(run("here/a", "there/a", [this](qint64 done, qint64 /*total*/) {
        return done == 0 || copyTo(tree.path("here/b"), tree.path("there/b"));
    }));
    EXPECT_EQ(tree.content("there/a"), kLong);
    EXPECT_EQ(namesIn(tree, "there"), (Names{"a", "b"}));
}

namespace {

class FileTransfer : public testing::Test {
protected:
    TempTree tree{{"here/a", "bytes"}, {"there/", ""}};
    UnrulyDisk disk;
};

} // namespace

TEST_F(FileTransfer, WaitsForTheDiskWhereSomethingCouldBeLost)
{
    const auto syncs = [this] {
        const auto count =
            std::count_if(disk.events.begin(), disk.events.end(), [this](const std::string& event) {
                return event.starts_with("sync " + tree.native("there/"));
            });
        disk.events.clear();
        return count;
    };
    EXPECT_TRUE(copyTo(tree.path("here/a"), tree.path("there/a")));
    EXPECT_EQ(syncs(), 0);
    EXPECT_TRUE(copyTo(tree.path("here/a"), tree.path("there/a")));
    EXPECT_EQ(syncs(), 1);
    disk.otherDisk = tree.native("there");
    EXPECT_TRUE(moveTo(tree.path("here/a"), tree.path("there/b")));
    EXPECT_EQ(syncs(), 1);
}

TEST_F(FileTransfer, MovesWithinAFileSystemByARename)
{
    const auto file = factsOf(tree.native("here/a")).st_ino;
    tree.add({"there/a", kOld});
    EXPECT_TRUE(moveTo(tree.path("here/a"), tree.path("there/a")));
    EXPECT_EQ(factsOf(tree.native("there/a")).st_ino, file);
}

TEST_F(FileTransfer, MovesToTheFileSystemInMemoryAndBack)
{
    const TempTree memory({{"there/", ""}}, TempTree::Medium::Memory);
    EXPECT_TRUE(moveTo(tree.path("here/a"), memory.path("there/b")));
    EXPECT_FALSE(tree.exists("here/a"));
    EXPECT_EQ(memory.content("there/b"), "bytes");
    EXPECT_TRUE(moveTo(memory.path("there/b"), tree.path("here/c")));
    EXPECT_FALSE(memory.exists("there/b"));
    EXPECT_EQ(tree.content("here/c"), "bytes");
}

TEST_F(FileTransfer, KeepsASourceThatChangesWhileItMovesAcross)
{
    disk.otherDisk = tree.native("there");
    tree.add({"there/a", kOld});
    const auto grow = [this](qint64 done, qint64 /*total*/) {
        return done != 5 || platform::appendToFile(tree.path("here/a"), "more");
    };
    EXPECT_FALSE(moveTo(tree.path("here/a"), tree.path("there/a"), grow));
    EXPECT_EQ(tree.content("here/a"), "bytesmore");
    EXPECT_EQ(tree.content("there/a"), kOld);
}

TEST_F(FileTransfer, KeepsAnotherFileThatTookTheNameOfTheSourceWhileItMovesAcross)
{
    disk.otherDisk = tree.native("there");
    EXPECT_FALSE(
        moveTo(tree.path("here/a"), tree.path("there/a"), [this](qint64 done, qint64 /*total*/) {
            if (done > 0) {
                fs::rename(tree.native("here/a"), tree.native("here/old"));
                tree.add({"here/a", "another"});
            }
            return true;
        }));
    EXPECT_EQ(tree.content("here/a"), "another");
    EXPECT_EQ(tree.content("here/old"), "bytes");
}

TEST_F(FileTransfer, GivesNoCopyTheRightsOfAnotherFile)
{
    fs::permissions(tree.native("here/a"), fs::perms(0600));
    tree.add({"here/b", "public"});
    fs::permissions(tree.native("here/b"), fs::perms(0644));
    EXPECT_TRUE(
        copyTo(tree.path("here/a"), tree.path("there/a"), [this](qint64 done, qint64 /*total*/) {
            if (done > 0) {
                fs::rename(tree.native("here/b"), tree.native("here/a"));
            }
            return true;
        }));
    EXPECT_EQ(tree.content("there/a"), "bytes");
    EXPECT_EQ(factsOf(tree.native("there/a")).st_mode & 07777U, 0600U);
}

TEST_F(FileTransfer, CopiesNothingForAMoveThatCouldNotEnd)
{
    for (const char* const folder : {".", "there"}) {
        fs::permissions(tree.native(folder), fs::perms::all);
    }
    fs::permissions(tree.native("here"), fs::perms(0555));
    disk.otherDisk = tree.native("there");
    {
        const OrdinaryUser user;
        EXPECT_FALSE(moveTo(tree.path("here/a"), tree.path("there/a")));
    }
    EXPECT_EQ(tree.content("here/a"), "bytes");
    EXPECT_EQ(namesIn(tree, "there"), Names{});
}

// ---- what a dead writer left ----

namespace {

// Copies into a folder and dies with the file named there.
void dieWhileCopying(const TempTree& tree)
{
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        UnrulyDisk disk;
        disk.hasUnnamedFiles = false;
        static_cast<void>(copyTo(tree.path("here/a"), tree.path("there/a"),
                                 [](qint64 done, qint64 /*total*/) -> bool {
                                     if (done > 0) {
                                         ::_exit(3);
                                     }
                                     return true;
                                 }));
        ::_exit(4);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_EQ(WEXITSTATUS(status), 3);
}

} // namespace

TEST_F(FileTransfer, RemovesWhatADeadOneLeft)
{
    const struct {
        const char* name;
        std::function<bool()> run;
    } kNext[] = {
        {"copy", [this] { return copyTo(tree.path("here/a"), tree.path("there/next")); }},
        {"move", [this] { return moveTo(tree.path("here/b"), tree.path("there/next")); }},
        {"rename",
         [this] { return platform::renameFile(tree.path("there/c"), tree.path("there/next")); }},
        {"copy that fails", [this] { return !copyTo(tree.path("none"), tree.path("there/x")); }},
    };
    for (const auto& [name, run] : kNext) {
        tree.remove("there/next");
        tree.add({"here/b", "bytes"});
        tree.add({"there/c", "bytes"});
        dieWhileCopying(tree);
        dieWhileCopying(tree);
        ASSERT_EQ(namesIn(tree, "there").size(), 2U) << name;
        EXPECT_TRUE(run()) << name;
        for (const std::string& left : namesIn(tree, "there")) {
            EXPECT_TRUE(left == "next" || left == "c") << name << " leaves " << left;
        }
    }
}

TEST_F(FileTransfer, RemovesNothingElse)
{
    dieWhileCopying(tree);
    const std::string ours = namesIn(tree, "there").at(0);
    fs::remove(tree.native("there/" + ours));
    const std::string start = ours.substr(0, ours.size() - 1);
    tree.add({"there/" + start + "1/", ""});
    fs::create_symlink(tree.native("here/a"), tree.native("there/" + start + "2"));
    tree.add({"there/.vistara-new-", "not ours"});
    tree.add({"there/.vistara-new-00000000-0", "another machine's"});
    tree.add({"there/x" + start + "3", "not ours"});
    disk.hasUnnamedFiles = false;
    platform::ReplacementFile living(tree.path("there/b"));
    ASSERT_TRUE(living.isOpen());
    const Names before = namesIn(tree, "there");
    EXPECT_EQ(before.size(), 6U);
    EXPECT_TRUE(platform::renameFile(tree.path("here/a"), tree.path("there/a")));
    Names after = before;
    after.emplace_back("a");
    std::sort(after.begin(), after.end());
    EXPECT_EQ(namesIn(tree, "there"), after);
}
