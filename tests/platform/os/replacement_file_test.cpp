#include "platform/os/replacement_file.h"

#include "platform/os/files.h"
#include "platform/os/profile.h"
#include "platform/pictures/picture_saver.h"
#include "support/full_disk.h"
#include "support/ordinary_user.h"
#include "support/temp_tree.h"
#include "support/unruly_disk.h"

#include <QImage>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using platform::copyFile;
using platform::Flush;
using platform::ReplacementFile;
using platform::writeFileWhole;
using support::OrdinaryUser;
using support::TempTree;
using support::UnrulyDisk;
namespace fs = std::filesystem;

namespace {

std::vector<std::string> namesIn(const TempTree& tree, const std::string& folder)
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(tree.native(folder))) {
        if (entry.is_regular_file()) {
            names.push_back(entry.path().filename());
        }
    }
    return names;
}

const std::vector<std::string> kOnlyA{"a"};

bool write(ReplacementFile& file, const QByteArray& bytes)
{
    return platform::writeAll(file.descriptor(), bytes.constData(), bytes.size());
}

// The ways in which a file of the user's is written.
struct Save {
    const char* name;
    bool (*run)(const TempTree& tree, const QString& target);
};

std::ostream& operator<<(std::ostream& stream, const Save& save)
{
    return stream << save.name;
}

const Save kSaves[] = {
    {"Bytes", [](const TempTree&,
                 const QString& target) { return writeFileWhole(target, "new", Flush::ToDisk); }},
    {"Copy",
     [](const TempTree& tree, const QString& target) {
         return copyFile(tree.path("source"), target, Flush::ToDisk);
     }},
    {"Picture",
     [](const TempTree&, const QString& target) {
         QImage image(3, 2, QImage::Format_RGB32);
         image.fill(Qt::red);
         return platform::savePicture(platform::Picture(image), target, Flush::ToDisk);
     }},
};

class UserSave : public testing::TestWithParam<Save> {
protected:
    bool save(const std::string& name) { return GetParam().run(tree, tree.path(name)); }

    TempTree tree{{"source", "new"}, {"pics/a", "the old bytes"}};
};

INSTANTIATE_TEST_SUITE_P(Ways, UserSave, testing::ValuesIn(kSaves),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

// ---- what a disk tells late ----

TEST_P(UserSave, IsOnTheDiskBeforeItTakesTheName)
{
    fs::create_symlink(tree.native("pics/a"), tree.native("link"));
    UnrulyDisk disk;
    EXPECT_TRUE(save("link"));
    const auto renamed = disk.indexOf("rename " + tree.native("pics/a"));
    ASSERT_GE(renamed, 1);
    EXPECT_TRUE(disk.events[static_cast<std::size_t>(renamed) - 1].starts_with(
        "sync " + tree.native("pics/")));
    EXPECT_EQ(disk.indexOf("sync " + tree.native("pics")), renamed + 1);
    EXPECT_NE(tree.content("pics/a"), "the old bytes");
}

TEST_P(UserSave, KeepsTheOldBytesOnADiskThatFailsLate)
{
    for (const int error : {ENOSPC, EIO, EDQUOT}) {
        for (int UnrulyDisk::*const call :
             {&UnrulyDisk::syncError, &UnrulyDisk::closeError, &UnrulyDisk::renameError}) {
            UnrulyDisk disk;
            disk.*call = error;
            EXPECT_FALSE(save("pics/a"));
            EXPECT_EQ(tree.content("pics/a"), "the old bytes");
            EXPECT_FALSE(save("pics/new"));
            EXPECT_EQ(namesIn(tree, "pics"), kOnlyA);
        }
    }
}

TEST_P(UserSave, KeepsTheOldBytesWithoutUnnamedFiles)
{
    UnrulyDisk disk;
    disk.hasUnnamedFiles = false;
    disk.syncError = ENOSPC;
    EXPECT_FALSE(save("pics/a"));
    EXPECT_EQ(tree.content("pics/a"), "the old bytes");
    disk.syncError = 0;
    EXPECT_TRUE(save("pics/a"));
    EXPECT_NE(tree.content("pics/a"), "the old bytes");
    EXPECT_EQ(namesIn(tree, "pics"), kOnlyA);
}

TEST_P(UserSave, IsWholeWhereSyncingMeansNothing)
{
    UnrulyDisk disk;
    disk.syncError = EINVAL;
    EXPECT_TRUE(save("pics/new"));
    EXPECT_TRUE(tree.exists("pics/new"));
}

TEST(WorkingFile, WaitsForNoDisk)
{
    const TempTree tree({{"source", "new"}, {"a", "old"}});
    const UnrulyDisk disk;
    EXPECT_TRUE(writeFileWhole(tree.path("a"), "new"));
    EXPECT_TRUE(writeFileWhole(tree.path("b"), "new"));
    EXPECT_TRUE(copyFile(tree.path("source"), tree.path("c"), Flush::No));
    for (const std::string& event : disk.events) {
        EXPECT_FALSE(event.starts_with("sync")) << event;
    }
}

TEST(Profile, KeepsTheOldValueOnADiskThatFailsLate)
{
    const TempTree tree({{"app/config.ini", "[A]\nkey=old\n"}});
    UnrulyDisk disk;
    disk.syncError = ENOSPC;
    EXPECT_FALSE(platform::writeProfile(tree.path("app/config.ini"), "A", "key", "new"));
    EXPECT_EQ(tree.content("app/config.ini"), "[A]\nkey=old\n");
}

// ---- several writers ----

TEST(Replacements, KeepApartWhereThereAreNoLocks)
{
    const TempTree tree({{"pics/a", "old"}, {"pics/b", "old"}});
    for (const bool hasUnnamedFiles : {true, false}) {
        UnrulyDisk disk;
        disk.hasLocks = false;
        disk.hasUnnamedFiles = hasUnnamedFiles;
        ReplacementFile first(tree.path("pics/a"));
        ReplacementFile second(tree.path("pics/b"));
        ASSERT_TRUE(first.isOpen());
        ASSERT_TRUE(second.isOpen());
        EXPECT_TRUE(write(first, "first"));
        EXPECT_TRUE(write(second, "second"));
        EXPECT_TRUE(first.commit(Flush::ToDisk));
        EXPECT_TRUE(second.commit(Flush::ToDisk));
        EXPECT_EQ(tree.content("pics/a"), "first");
        EXPECT_EQ(tree.content("pics/b"), "second");
        EXPECT_EQ(namesIn(tree, "pics").size(), 2U);
    }
}

TEST(Replacements, NeverRenameAFileThatIsNotTheirs)
{
    const TempTree tree({{"pics/a", "old"}});
    UnrulyDisk disk;
    disk.hasLocks = false;
    disk.hasUnnamedFiles = false;
    ReplacementFile file(tree.path("pics/a"));
    ASSERT_TRUE(file.isOpen());
    EXPECT_TRUE(write(file, "new"));
    for (const std::string& name : namesIn(tree, "pics")) {
        if (name != "a") {
            tree.remove("pics/" + name);
            tree.add({"foreign", "foreign"});
            fs::rename(tree.native("foreign"), tree.native("pics/" + name));
        }
    }
    EXPECT_FALSE(file.commit(Flush::ToDisk));
    EXPECT_EQ(tree.content("pics/a"), "old");
}

namespace {

// A process that saves and dies when its file has a name, but not the target's yet.
void dieWhileSaving(const QString& target)
{
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        UnrulyDisk disk;
        disk.hasUnnamedFiles = false;
        disk.beforeRename = [] { ::_exit(3); };
        static_cast<void>(
            writeFileWhole(target, "left over, and longer than the new bytes", Flush::ToDisk));
        ::_exit(4);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_EQ(WEXITSTATUS(status), 3);
}

} // namespace

TEST(Replacements, RemoveWhatADeadWriterLeft)
{
    for (const bool hasUnnamedFiles : {true, false}) {
        const TempTree tree({{"pics/a", "old"}});
        dieWhileSaving(tree.path("pics/a"));
        ASSERT_EQ(namesIn(tree, "pics").size(), 2U);
        UnrulyDisk disk;
        disk.hasUnnamedFiles = hasUnnamedFiles;
        EXPECT_TRUE(writeFileWhole(tree.path("pics/a"), "new", Flush::ToDisk));
        EXPECT_EQ(tree.content("pics/a"), "new");
        EXPECT_EQ(namesIn(tree, "pics"), kOnlyA);
    }
}

TEST(Replacements, LeaveWhatMayBeAliveWhereThereAreNoLocks)
{
    const TempTree tree({{"pics/a", "old"}});
    for (int dead = 0; dead < 3; ++dead) {
        dieWhileSaving(tree.path("pics/a"));
    }
    const auto before = namesIn(tree, "pics");
    UnrulyDisk disk;
    disk.hasLocks = false;
    for (const bool hasUnnamedFiles : {true, false}) {
        disk.hasUnnamedFiles = hasUnnamedFiles;
        EXPECT_TRUE(writeFileWhole(tree.path("pics/a"), "new", Flush::ToDisk));
        EXPECT_EQ(tree.content("pics/a"), "new");
        EXPECT_EQ(namesIn(tree, "pics").size(), before.size());
    }
}

TEST(Replacements, AreNotHinderedByALeftoverThatCannotBeRead)
{
    for (const bool hasUnnamedFiles : {true, false}) {
        const TempTree tree({{"pics/a", "old"}});
        fs::permissions(tree.native("."), fs::perms::all);
        fs::permissions(tree.native("pics"), fs::perms::all);
        fs::permissions(tree.native("pics/a"), fs::perms(0666));
        dieWhileSaving(tree.path("pics/a"));
        for (const std::string& name : namesIn(tree, "pics")) {
            if (name != "a") {
                fs::permissions(tree.native("pics/" + name), fs::perms::none);
            }
        }
        UnrulyDisk disk;
        disk.hasUnnamedFiles = hasUnnamedFiles;
        const OrdinaryUser user;
        EXPECT_TRUE(writeFileWhole(tree.path("pics/a"), "new", Flush::ToDisk));
        EXPECT_EQ(tree.content("pics/a"), "new");
        EXPECT_EQ(namesIn(tree, "pics").size(), 2U);
    }
}

TEST(Replacements, FindANameInAFolderFullOfLeftovers)
{
    const TempTree tree({{"pics/a", "old"}});
    UnrulyDisk disk;
    disk.hasLocks = false;
    disk.hasUnnamedFiles = false;
    std::vector<std::unique_ptr<ReplacementFile>> files;
    for (int i = 0; i < 150; ++i) {
        files.push_back(std::make_unique<ReplacementFile>(tree.path("pics/a")));
        ASSERT_TRUE(files.back()->isOpen()) << i;
    }
    EXPECT_TRUE(write(*files.back(), "last"));
    EXPECT_TRUE(files.back()->commit(Flush::No));
    files.clear();
    EXPECT_EQ(tree.content("pics/a"), "last");
    EXPECT_EQ(namesIn(tree, "pics"), kOnlyA);
}

// ---- a folder that can't be written ----

namespace {

// A file that an ordinary user may write, in a folder where it may make none.
class LockedFolder : public testing::TestWithParam<Save> {
protected:
    LockedFolder()
    {
        fs::permissions(tree.native("."), fs::perms::all);
        fs::permissions(tree.native("app"), fs::perms::all);
        ::chmod(tree.native("pics/a").c_str(), 0666);
        ::chmod(tree.native("pics").c_str(), 0555);
        user.emplace();
    }
    ~LockedFolder() override
    {
        user.reset();
        ::chmod(tree.native("pics").c_str(), 0755);
    }

    bool save() { return GetParam().run(tree, tree.path("pics/a")); }

    TempTree tree{{"source", "new"}, {"pics/a", kOld}};
    std::optional<OrdinaryUser> user;

    static constexpr const char* kOld = "the old bytes, more of them than there are new ones, "
                                        "and more than a small picture has";
};

INSTANTIATE_TEST_SUITE_P(Ways, LockedFolder, testing::ValuesIn(kSaves),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

TEST_P(LockedFolder, HasItsFilesWrittenInPlace)
{
    struct stat before = {};
    ASSERT_EQ(::stat(tree.native("pics/a").c_str(), &before), 0);
    UnrulyDisk disk;
    EXPECT_TRUE(save());
    struct stat after = {};
    ASSERT_EQ(::stat(tree.native("pics/a").c_str(), &after), 0);
    EXPECT_EQ(after.st_ino, before.st_ino);
    EXPECT_EQ(after.st_mode, before.st_mode);
    const std::string content = tree.content("pics/a");
    EXPECT_TRUE(content == "new" || content.starts_with("BM")) << content;
    EXPECT_LT(content.size(), std::string(kOld).size() + 20);
    EXPECT_GE(disk.indexOf("sync " + tree.native("pics/a")), 0);
    EXPECT_TRUE(namesIn(tree, "app").empty());
}

TEST_P(LockedFolder, KeepsTheOldBytesWhenTheDiskFails)
{
    const auto expectOld = [this] {
        EXPECT_FALSE(save());
        EXPECT_EQ(tree.content("pics/a"), kOld);
        EXPECT_TRUE(namesIn(tree, "app").empty());
    };
    {
        const support::FullDisk disk(2);
        expectOld();
    }
    for (int UnrulyDisk::*const call : {&UnrulyDisk::syncError, &UnrulyDisk::closeError}) {
        UnrulyDisk disk;
        disk.*call = ENOSPC;
        disk.failing = "pics/a";
        disk.failures = 1;
        expectOld();
        disk.failures = 1;
        disk.failing.clear();
        expectOld();
    }
}

TEST_P(LockedFolder, LeavesACopyOfWhatCannotBePutBack)
{
    UnrulyDisk disk;
    disk.syncError = EIO;
    disk.failing = "pics/a";
    EXPECT_FALSE(save());
    const auto kept = namesIn(tree, "app");
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_TRUE(kept[0].starts_with("a.before-save")) << kept[0];
    EXPECT_EQ(tree.content("app/" + kept[0]), kOld);
}

TEST_P(LockedFolder, StaysWhereNoCopyCanBeKept)
{
    user.reset();
    ::chmod(tree.native("app").c_str(), 0555);
    user.emplace();
    EXPECT_FALSE(save());
    EXPECT_EQ(tree.content("pics/a"), kOld);
}

TEST_P(LockedFolder, MayBeOneWhereOnlyOwnersRename)
{
    user.reset();
    ::chmod(tree.native("pics").c_str(), 01777);
    user.emplace();
    UnrulyDisk disk;
    if (::getuid() != 0) {
        disk.renameError = EPERM; // as for the file of another owner, which only root can make
    }
    EXPECT_TRUE(save());
    EXPECT_NE(tree.content("pics/a"), kOld);
    EXPECT_EQ(namesIn(tree, "pics"), kOnlyA);
    EXPECT_TRUE(namesIn(tree, "app").empty());
}

// ---- a file that ends half ----

TEST(Append, LeavesNoHalfRecordOnAFullDisk)
{
    const TempTree tree({{"list", "one;"}});
    {
        const support::FullDisk disk(6);
        EXPECT_FALSE(platform::appendToFile(tree.path("list"), "two;"));
    }
    EXPECT_EQ(tree.content("list"), "one;");
    EXPECT_TRUE(platform::appendToFile(tree.path("list"), "three;"));
    EXPECT_EQ(tree.content("list"), "one;three;");
}

TEST(Append, LeavesNoRecordThatDidNotReachTheDisk)
{
    const TempTree tree({{"list", "one;"}});
    for (const bool syncFails : {true, false}) {
        UnrulyDisk disk;
        disk.losesBytes = false;
        (syncFails ? disk.syncError : disk.closeError) = EIO;
        EXPECT_FALSE(platform::appendToFile(tree.path("list"), "two;"));
        EXPECT_EQ(tree.content("list"), "one;");
    }
}
